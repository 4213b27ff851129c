#pragma once

#include "basesys/ZuAppMain.h"

#include <atomic>
#include <cstdint>
#include <thread>

class ZuDataSwap;

// The engine owning its GL and, in threaded use, its frame thread.
//
// Threaded: init, asyncInit, createOffGLContext and any other call from any
// thread, asyncDestroy. Synchronous: init, syncInit, createOffGLContext,
// syncRender once a frame on the caller's thread, syncDestroy. Either way
// the off-screen context comes up at the first frame after it was asked for
// and belongs to the thread of the frames. Host callbacks (event procers)
// run on that thread.
class ZuAppMainAsync : public ZuAppMain {
public:
    // The frame thread's default pace: one frame each 66 ms, about 15 a second.
    static constexpr int kDefaultFramePeriodUs = 66000;

    ZuAppMainAsync() = default;
    ~ZuAppMainAsync() override;

    void init() override;
    void startEngine() {}
    void stopEngine();
    void thread_startengine() { initZuBase(); }
    void thread_stopengine() { destroyZuBase(); }
    // One tick without effect queue, framebuffer ageing or GIF recording.
    void update() override;
    // Draws every scene into the off-screen context and swaps.
    void render() override;

    virtual void createOffGLContext(const char* name, int width, int height);
    virtual void destroyOffGLContext(const char* name);
    virtual void pushCameraData(const char* name, void* data);
    virtual void fetchRenderData(const char* name, void* data);
    virtual void getIconData(const char* name, int width, int height, void* data) {}
    virtual void createFacePointNode(const char* name);
    virtual void syncInit();
    virtual void syncDestroy();
    virtual void syncRender();
    // Starts the engine and its frame thread; refused while one runs.
    virtual bool asyncInit();
    // Ends the frame thread, then stops the engine on the caller's thread.
    virtual void asyncDestroy();
    virtual void asyncRender();

    void pushCameraData(const char* name, void* data, ZuDataSwap* swap);
    void fetchRenderData(const char* name, void* data, ZuDataSwap* swap);
    // The package parses at the next frame; it is ready with its ready event.
    void loadEffect(const char* name, const char* path, int resUID, int slot);
    // The 23 host floats of a colour filter record.
    void loadTEXTEffect(const char* name, const char* path, int a, int b, float* values);

    void setEnabled(bool on) { enabled = on; }
    bool isEnabled() const { return enabled; }
    bool isLoopRunning() const { return loopRunning; }
    // The frame thread's period in microseconds; 0 runs frames back to back
    // (with a 1 ms pause so that pushing threads get the locks).
    void setFramePeriodUs(int us) { framePeriodUs = us < 0 ? 0 : us; }
    // Frames drawn so far (both modes): a host waits for it to move on.
    uint64_t getFrameCount() const { return frameCount; }
    // Blocks until at least count frames were drawn; false after timeoutMs
    // or when no frame thread runs.
    bool waitForFrameCount(uint64_t count, int timeoutMs) const;

    // Microseconds to sleep after a frame that took elapsedUs.
    static int sleepAfterFrame(int periodUs, int64_t elapsedUs);

private:
    // Sleeps in short slices so that asyncDestroy is not held up.
    void pause(int micros) const;
    void releaseThreadContext();

    bool enabled = true;
    std::atomic<bool> loopRunning{false};
    std::thread* thread = nullptr;
    std::atomic<int> framePeriodUs{kDefaultFramePeriodUs};
    std::atomic<uint64_t> frameCount{0};
};
