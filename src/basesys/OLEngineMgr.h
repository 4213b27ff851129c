#pragma once

#include "basesys/QZEngineConfig.h"
#include "basesys/ZuThread.h"

#include <EGL/egl.h>
#include <atomic>

class OLEglMgr;
class ZuAppMainWrap;

// A self-contained engine for a host that hands over GL textures: it runs
// the frames on a ZuThread of its own (30 a second) with a context that
// shares the host's objects, reading the host's input texture and drawing
// into the host's output texture. The host thread only pushes frames, face
// records and effects.
class OLEngineMgr {
public:
    OLEngineMgr() = default;
    ~OLEngineMgr() { unInit(); }
    OLEngineMgr(const OLEngineMgr&) = delete;
    OLEngineMgr& operator=(const OLEngineMgr&) = delete;

    // Call with the host's GL context current: false without one. The
    // config is copied.
    bool init(JNIEnv* env, const QZEngineConfig* config);
    bool pushCameraData(char* data, int size);
    // A face record of the engine's back end; its length comes from its count.
    bool pushDetectData(char* data, int size);
    // One frame: tick and draw the scene (the frame thread calls it).
    bool updateEngine();
    bool unInit();
    bool loadEffect(const char* path, int id);
    bool clearEffect(int id);

    ZuAppMainWrap* getApp() const { return app.load(); }
    // Frames drawn by the frame thread so far.
    uint64_t framesDrawn() const { return frames; }
    bool hasThreadContext() const { return eglReady; }

private:
    static void threadStart(void* self);
    static void threadProcess(void* self);
    static void threadEnd(void* self);
    void createScene();

    QZEngineConfig config;
    // Published once the engine runs: the frame thread draws only then.
    std::atomic<ZuAppMainWrap*> app{nullptr};
    ZuAppMainWrap* owned = nullptr;
    OLEglMgr* egl = nullptr;
    ZuThread* thread = nullptr;
    _AsyncCallback callbacks;
    EGLContext hostContext = EGL_NO_CONTEXT;
    JavaVM* vm = nullptr;
    std::atomic<uint64_t> frames{0};
    std::atomic<bool> eglReady{false};
};
