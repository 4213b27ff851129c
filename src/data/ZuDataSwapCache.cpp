#include "data/ZuDataSwapCache.h"

#include "data/ZuDataSwap.h"

ZuDataSwapCache::~ZuDataSwapCache() { destroy(); }

void ZuDataSwapCache::init(int count) {
    destroy();
    for (int i = 0; i < count; ++i) m_slots.push_back(new ZuDataSwap());
    m_count = count > 0 ? count : 0;
    reset();
}

void ZuDataSwapCache::destroy() {
    for (uint32_t i = 0; i < m_slots.size(); ++i) m_slots[i]->release();
    m_slots.clear();
    m_count = 0;
}

void ZuDataSwapCache::setBufSize(int size) {
    for (uint32_t i = 0; i < m_slots.size(); ++i) m_slots[i]->aplly(size);
}

bool ZuDataSwapCache::isFull() const { return m_writeIndex - m_readIndex >= m_count; }

ZuDataSwap* ZuDataSwapCache::getWriteData() {
    if (m_count == 0 || isFull()) return nullptr;
    return m_slots[m_writeIndex % m_count];
}

ZuDataSwap* ZuDataSwapCache::getReadData() {
    if (m_count == 0 || m_readIndex >= m_writeIndex) return nullptr;
    return m_slots[m_readIndex % m_count];
}

void ZuDataSwapCache::incWrite() {
    if (m_count == 0) return;
    ++m_writeIndex;
    if (isFull()) m_signal.wait();
}

void ZuDataSwapCache::incRead() {
    if (m_count == 0) return;
    bool wasFull = isFull();
    ++m_readIndex;
    // Wake the writer that blocked when its write filled the ring.
    if (wasFull && !isFull()) m_signal.signal();
}

void ZuDataSwapCache::reset() {
    m_readIndex = 0;
    m_writeIndex = 0;
}
