#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzString.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <thread>
#include <vector>

class GifWrap;
class ZuConditionVariable;
class ZuFboObject;

// Records what a scene shows into an animated GIF. The frame tick only reads
// the scene's scaled output framebuffer (one glReadPixels of the wanted size);
// a worker thread of the manager's own flips the rows and encodes, so the
// encoder's cost stays off the GL thread. The worker is made by the first
// recording and serves every later one.
class ZuGifMgr : public ZuGBase {
public:
    explicit ZuGifMgr(ZuAppMain* app);
    ~ZuGifMgr() override;

    virtual void init();
    virtual void destroy();
    // From the frame tick, after the scenes have recorded: starts a pending
    // recording, or reads the picture the last replay left.
    virtual void update(float delta);

    // Ignored while a recording runs. Makes the scene's scaled output node
    // ("<scene>_outTextureScale") when there is none; the recording starts on
    // the first tick that finds the node.
    void startRecordGif(const char* sceneName, const char* path, int width, int height);
    // Finishes the file. Frames still waiting for the worker are dropped, so a
    // host that wants every frame waits for pendingFrames() to reach 0 first.
    void stopRecordGif();

    bool isRecording() const { return recording.load(); }
    // A recording is asked for and has not yet been finished by the worker.
    bool isBusy() const { return startPending || recording.load() || stopRequest.load(); }
    size_t pendingFrames();
    int framesEncoded() const { return encoded.load(); }

    // The name of the scaled output node a recording of this scene reads.
    static qz::string scaleNodeName(const char* sceneName);

private:
    struct Frame {
        std::vector<uint8_t> pixels; // bottom row first, as read back
        int width = 0;
        int height = 0;
        int delayCs = 0;
    };

    ZuFboObject* sourceFbo() const;
    void readFrame(float delta);
    void run();
    void encode(const Frame& frame, std::vector<uint8_t>& topFirst);
    void finishRecording();
    // Sets a flag the worker waits on under its lock, so the wake-up is not lost.
    void raise(std::atomic<bool>& flag, bool value);

    std::deque<Frame> frames; // guarded by signal's lock
    GifWrap* gif = nullptr;
    std::atomic<bool> recording{false};
    std::atomic<bool> running{false};
    std::atomic<bool> stopRequest{false};
    std::atomic<bool> startPending{false};
    qz::string sceneName;
    qz::string path;
    int width = 0;
    int height = 0;
    // Tick time not yet handed out as whole centiseconds of frame delay.
    float pendingDelayMs = 0.0f;
    std::atomic<int> encoded{0};
    std::thread* thread = nullptr;
    ZuConditionVariable* signal = nullptr;
};
