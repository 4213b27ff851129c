#pragma once

#include "basesys/qzString.h"
#include "event/ZuEventProc.h"

#include <atomic>
#include <mutex>

class ZuDataShareSwap;

// The bookkeeping behind the one-scene facades: which package is loaded or
// loading (one at a time; a request during a load is dropped, only the last
// path is remembered), whether the output is open (from the first ready
// effect on), the host-memory swap and a scratch frame for repacking.
// procEvent runs on the engine's frame thread, the rest on the host's.
class CBrockHelp : public ZuEventProc {
public:
    static constexpr int kEffectUID = 250;

    explicit CBrockHelp(ZuAppMain* app) : ZuEventProc(app) {}
    ~CBrockHelp() override;

    void init();
    // The zeroed scratch frame of width x height x 1.5 bytes, made once.
    void create(int width, int height);
    void destroy();
    // current and pending back to "null".
    void resetEft();
    // Remembers path as the last asked for; true (and path becomes current)
    // when no load is in flight and path is not the current one.
    bool canLoadEft(const char* path);
    // The effect's ready event opens the output and allows the next load.
    bool procEvent(ZuEvent* event) override;

    qz::string getCurrent() const;
    void setCurrent(const char* path);
    bool canLoad() const { return canLoadFlag; }
    bool isOutputOpen() const { return outputOpen; }
    void* getRepackBuffer() const { return repackBuffer; }
    int getRepackSize() const { return repackSize; }
    ZuDataShareSwap* getShareSwap() const { return shareSwap; }
    // Takes a new swap (the old one released).
    void setShareSwap(ZuDataShareSwap* swap);

    int syncMode = 1; // 1: the engine runs by syncInit and syncRender
    int repack = 1;   // 1: rows padded to 16-byte chroma strides are repacked

private:
    mutable std::mutex lock;
    qz::string current = "null";
    qz::string pending = "null";
    std::atomic<bool> canLoadFlag{true};
    void* repackBuffer = nullptr;
    int repackSize = 0;
    ZuDataShareSwap* shareSwap = nullptr;
    std::atomic<bool> outputOpen{false};
};
