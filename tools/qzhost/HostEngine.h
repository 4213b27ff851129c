#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

class ZuAppMain;
class ZuAppMainAsync;
class PackageWatcher;

// One engine session driven like a phone app's native layer: the life cycle
// on ZuAppMain, everything else through its ZuAppNative facade, on the
// headless GL context.
class HostEngine {
public:
    static constexpr const char* kSceneName = "qzhost";
    static constexpr int kFirstResUID = 250;

    HostEngine() = default;
    ~HostEngine();
    HostEngine(const HostEngine&) = delete;
    HostEngine& operator=(const HostEngine&) = delete;

    // GL context, engine start with assets as search path. False after
    // printing why. threaded: the engine runs its own frame thread and
    // off-screen context; this host then only pushes, waits and fetches.
    bool start(const std::string& assets, bool threaded = false);
    // Camera record, scene, camera background and output stream, then one
    // frame so the set-up operations have run before the first push.
    void setupScene(int width, int height, int cameraHostFormat, int outputType);
    // Loads each package (resUID 250, 251..., slot 0, 1...), by loadEffect
    // or through the effect queue.
    void loadEffects(const std::vector<std::string>& packages, bool queued);
    // Head pictures for the first package, "SKELETON,BONE,FILE.png" each;
    // call before loadEffects. False after printing why.
    bool setHeads(const std::vector<std::string>& heads);

    // Ticks until every package (or, queued, the first) has its parse
    // outcome, so the first written frame already shows them; gives up after
    // timeoutMs and lets the run go on. False on timeout.
    bool waitForEffects(bool queued, int timeoutMs);

    // Switches the engine to a tracker back end (a DETECTTYPE value) and,
    // with showPoints, adds the face-point debug node; ticks once so both
    // are in place before the first record.
    void setupFaces(int detectType, bool showPoints);
    // Pushes one face record, as a host does with each camera frame.
    void pushFaceRecord(const std::vector<uint8_t>& record);

    // Pushes one camera frame; its size must match the set-up format.
    void pushFrame(const std::vector<uint8_t>& frame);
    void tick();
    // Renders the pushed frame so that the next fetch() returns exactly it.
    void renderFrame();
    // Pushes frame (and the face record) and ticks for ms milliseconds, so
    // that what loads in the background has arrived before the first read.
    void settle(const std::vector<uint8_t>& frame, const std::vector<uint8_t>* faceRecord, int ms);
    // Reads the last finished frame into out, which the caller sizes to at
    // least the output format's frame (fetchRenderData fills it blind); false
    // when no frame has come back.
    bool fetch(std::vector<uint8_t>& out);

    // From now on the engine's clock moves 1000/fps ms per rendered frame
    // instead of following the wall clock, so animations and GIF delays keep
    // the clip's rate however fast this machine renders.
    void useFrameRate(int fps);
    // Records the output into an animated GIF of width x height, starting
    // with the next rendered frame. False when the engine refused it.
    bool startGif(const std::string& path, int width, int height);
    // Hands the last rendered frame to the recording, waits for the encoder
    // to take every frame, then finishes the file. False after timeoutMs.
    bool finishGif(int timeoutMs);

    // Packages whose load failed, and those still loading.
    int failedEffects() const;
    void reportPendingEffects() const;

    void stop();

private:
    bool gifBusy() const;

    // A decoded head picture; the engine reads the pixels in a later frame.
    struct Head {
        std::string skeleton, bone;
        std::vector<uint8_t> rgba;
        int width = 0, height = 0;
    };
    std::vector<Head> m_heads;
    bool m_es3 = false;
    // Stepped clock (useFrameRate): microseconds, and the step per frame; 0: wall clock.
    // Read by the engine's frame thread in threaded runs.
    std::atomic<int64_t> m_clockMicros{0};
    int64_t m_frameStepMicros = 0;
    ZuAppMain* m_app = nullptr;
    ZuAppMainAsync* m_async = nullptr; // m_app itself, in threaded runs
    PackageWatcher* m_watcher = nullptr;
};
