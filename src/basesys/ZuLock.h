#pragma once

#include <pthread.h>

// A plain non-recursive mutex, created and destroyed by explicit calls in its
// owner's init and destroy steps rather than by constructor and destructor.
class ZuLock {
public:
    void create();
    void destroy();
    void lock();
    void unlock();
    // True when the lock was taken.
    bool trylock();
    bool isCreated() const { return m_created; }

private:
    pthread_mutex_t m_mutex{};
    bool m_created = false;
};

// Scoped holder for the common lock/unlock pair.
class ZuLockGuard {
public:
    explicit ZuLockGuard(ZuLock& lock) : m_lock(lock) { m_lock.lock(); }
    ~ZuLockGuard() { m_lock.unlock(); }
    ZuLockGuard(const ZuLockGuard&) = delete;
    ZuLockGuard& operator=(const ZuLockGuard&) = delete;

private:
    ZuLock& m_lock;
};
