#pragma once

#include "basesys/ZuRandom.h"
#include "basesys/ZuRefObject.h"

#include <atomic>
#include <cstdint>
#include <functional>

class ZuAppNative;
class ZuGlobalMgr;
class ZuGlobalParam;
class ZuLiveObjects;

// Engine states. Scoped, so that a stray integer cannot pass for one; the
// ZU_ENG_STATE_ names are the values under their usual spelling.
enum class ZU_ENG_STATE : uint32_t {
    STOPPED = 0,  // managers are not built
    RUNNING = 1,  // frames and operations are served
    STOPPING = 2, // no new work is taken; managers still exist
};
constexpr ZU_ENG_STATE ZU_ENG_STATE_STOPPED = ZU_ENG_STATE::STOPPED;
constexpr ZU_ENG_STATE ZU_ENG_STATE_RUNNING = ZU_ENG_STATE::RUNNING;
constexpr ZU_ENG_STATE ZU_ENG_STATE_STOPPING = ZU_ENG_STATE::STOPPING;

// One running engine. A host constructs it, calls init, adds search paths,
// calls initZuBase with its GL context current, then once a frame update and
// directrender. To stop: setState(2), destroyZuBase, destroy, release.
class ZuAppMain : public ZuRefObject {
public:
    // A wall-clock reading: seconds and microseconds.
    struct WallTime {
        int64_t seconds = 0;
        int64_t micros = 0;
    };
    using Clock = std::function<WallTime()>;

    ZuAppMain();
    ~ZuAppMain() override;

    virtual void init();
    virtual void destroy();
    virtual void initZuBase();
    virtual void destroyZuBase();
    virtual void update();
    virtual void updateEffectRes();
    virtual void render() {}
    virtual void directrender(const char* sceneName);

    ZU_ENG_STATE getState() const { return state.load(); }
    // who is the caller's tag ("wrap", "async"...), kept for logs only.
    void setState(const char* who, ZU_ENG_STATE newState);

    ZuAppNative* getAppInter() const { return appInter; }
    ZuGlobalMgr* getGlobalMgr() const { return globalMgr; }
    ZuGlobalParam* getGlobalParam() const { return globalParam; }
    // The engine's random source: seeded from the clock, reseeded by hosts and
    // tests that need a repeatable run.
    ZuRandom& getRandom() { return random; }
    // Textures, materials and framebuffers of this engine still alive; what
    // is left at destroyZuBase is logged as a leak.
    ZuLiveObjects* getLiveObjects() const { return liveObjects; }

    void addRespath(const char* path);
    // Restarts the frame clock: the next delta is again 0.033.
    void setFirstGetDert(bool first) { firstGetDert = first; }

    // The wall clock behind the frame delta; gettimeofday unless replaced
    // (tests install a clock they step themselves).
    void setClock(Clock clock);

protected:
    // Any texture, material or framebuffer still alive breaks an invariant.
    void reportLiveObjects() const;
    // Milliseconds since the last call; 0.033 on the first call after a (re)start.
    float _getDert();

    std::atomic<ZU_ENG_STATE> state{ZU_ENG_STATE_STOPPED};
    ZuAppNative* appInter = nullptr;
    ZuGlobalMgr* globalMgr = nullptr;
    ZuGlobalParam* globalParam = nullptr;
    WallTime lastTime;
    std::atomic<bool> firstGetDert{true};
    Clock clock;
    ZuRandom random;
    ZuLiveObjects* liveObjects;
};
