#include "basesys/ZuLock.h"

void ZuLock::create() {
    if (m_created) return;
    pthread_mutex_init(&m_mutex, nullptr);
    m_created = true;
}

void ZuLock::destroy() {
    if (!m_created) return;
    pthread_mutex_destroy(&m_mutex);
    m_created = false;
}

void ZuLock::lock() { pthread_mutex_lock(&m_mutex); }

void ZuLock::unlock() { pthread_mutex_unlock(&m_mutex); }

bool ZuLock::trylock() { return pthread_mutex_trylock(&m_mutex) == 0; }
