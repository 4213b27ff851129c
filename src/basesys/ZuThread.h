#pragma once

#include <atomic>
#include <thread>

// Callbacks of a ZuThread; each takes the thread's user data and may be null.
struct _AsyncCallback {
    void (*process)(void* userData) = nullptr;
    void (*start)(void* userData) = nullptr;
    void (*end)(void* userData) = nullptr;
};

// A timed loop on a thread of its own: start once, process at most
// frameRate times a second, end once. The callback record stays the
// caller's; destroy zeroes its pointers.
class ZuThread {
public:
    ZuThread() = default;
    ~ZuThread() { destroy(); }
    ZuThread(const ZuThread&) = delete;
    ZuThread& operator=(const ZuThread&) = delete;

    // Starts the loop; false (nothing started) when it already runs or
    // callbacks is null.
    bool init(_AsyncCallback* callbacks, void* userData);
    // Rounds a second; 0 runs the loop without sleeping.
    void setFrameRate(int rate) { frameRate = rate < 0 ? 0 : rate; }
    int getFrameRate() const { return frameRate; }
    // Stops the loop after its current round and joins the thread.
    void destroy();
    bool isRunning() const { return running; }

    // Milliseconds to sleep after a round that took elapsedMs.
    static int sleepAfter(int frameRate, int elapsedMs);

private:
    void _run();

    void* userData = nullptr;
    std::atomic<bool> running{false};
    std::atomic<int> frameRate{30};
    std::thread* thread = nullptr;
    _AsyncCallback* callbacks = nullptr;
};
