#pragma once

#include <condition_variable>
#include <mutex>

// A counting wake-up between two threads: wait() blocks until a signal()
// arrives; a signal given before the wait is not lost.
class ZuSignal {
public:
    void wait();
    void signal();

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    int m_pending = 0;
};
