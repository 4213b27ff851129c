#include "basesys/ZuThread.h"

#include <chrono>

bool ZuThread::init(_AsyncCallback* newCallbacks, void* newUserData) {
    if (thread || !newCallbacks) return false;
    userData = newUserData;
    callbacks = newCallbacks;
    running = true;
    thread = new std::thread(&ZuThread::_run, this);
    return true;
}

int ZuThread::sleepAfter(int rate, int elapsedMs) {
    int period = rate > 0 ? 1000 / rate : 0;
    return elapsedMs < period ? period - elapsedMs : 0;
}

void ZuThread::_run() {
    using Clock = std::chrono::steady_clock;
    if (callbacks->start) callbacks->start(userData);
    while (running) {
        auto begin = Clock::now();
        if (callbacks->process) callbacks->process(userData);
        int elapsed = static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count());
        int rest = sleepAfter(frameRate, elapsed);
        if (rest > 0) std::this_thread::sleep_for(std::chrono::milliseconds(rest));
    }
    if (callbacks->end) callbacks->end(userData);
}

void ZuThread::destroy() {
    running = false;
    if (!thread) return;
    if (thread->joinable()) thread->join();
    delete thread;
    thread = nullptr;
    if (callbacks) {
        callbacks->process = nullptr;
        callbacks->start = nullptr;
        callbacks->end = nullptr;
    }
    callbacks = nullptr;
}
