#pragma once

#include <condition_variable>
#include <mutex>

// A wake-up for a worker that sleeps until there is work. The waiter names
// what it waits for, checked under the lock, so a notify that comes before
// the wait is not lost. Whatever the condition reads is guarded by lock().
class ZuConditionVariable {
public:
    ~ZuConditionVariable() { notify_all(); }

    std::mutex& lock() { return m_mutex; }

    // Blocks until ready() holds; ready() runs with the lock held.
    template <class Ready> void wait(Ready ready) {
        std::unique_lock<std::mutex> guard(m_mutex);
        m_condition.wait(guard, ready);
    }

    void notify_all() { m_condition.notify_all(); }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
};
