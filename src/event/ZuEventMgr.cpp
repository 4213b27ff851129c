#include "event/ZuEventMgr.h"

#include "event/ZuEvent.h"
#include "event/ZuEventProc.h"

ZuEventMgr::ZuEventMgr(ZuAppMain* app) : ZuGBase(app) { m_poolLock.create(); }

ZuEventMgr::~ZuEventMgr() {
    destroy();
    m_poolLock.destroy();
}

void ZuEventMgr::init() { reset(); }

void ZuEventMgr::reset() {
    ZuLockGuard hold(m_poolLock);
    m_readPool = &m_poolA;
    m_writePool = &m_poolB;
}

void ZuEventMgr::destroy() {
    clearAllEventProcer();
    clearAllEvent();
}

void ZuEventMgr::pushEvent(ZuEvent* event) {
    if (!event) return;
    {
        ZuLockGuard hold(m_poolLock);
        if (m_writePool) {
            m_writePool->push_back(event);
            return;
        }
    }
    // After destroy the manager takes nothing; the event is dropped rather
    // than leaked, since the sender has already handed its reference over.
    event->release();
}

void ZuEventMgr::pushEventToSecondPool(ZuEvent* event) {
    if (!event) return;
    ZuLockGuard hold(m_poolLock);
    m_secondPool.push_back(event);
}

void ZuEventMgr::registProcer(ZuEventProc* proc) {
    if (!proc || hasRegist(proc)) return;
    proc->retain();
    m_receivers.push_back(proc);
}

void ZuEventMgr::unregistProcer(ZuEventProc* proc) {
    if (!proc) return;
    for (uint32_t i = 0; i < m_receivers.size(); ++i) {
        if (m_receivers[i] == proc) {
            m_receivers.erase(i);
            proc->release();
            return;
        }
    }
}

bool ZuEventMgr::hasRegist(ZuEventProc* proc) {
    if (!proc) return true;
    for (uint32_t i = 0; i < m_receivers.size(); ++i)
        if (m_receivers[i] == proc) return true;
    return false;
}

void ZuEventMgr::procEvent(ZuEvent* event) {
    if (!event) return;
    uint32_t i = 0;
    while (i < m_receivers.size()) {
        ZuEventProc* proc = m_receivers[i];
        // Held while it runs, so a receiver may unregister or delete itself
        // (and its package) from inside its own handler.
        proc->retain();
        bool passOn = proc->procEvent(event);
        // If the receiver left the array during its handler, the next one has
        // moved into slot i: don't step past it.
        bool stillHere = i < m_receivers.size() && m_receivers[i] == proc;
        proc->release();
        if (!passOn) return;
        if (stillHere) ++i;
    }
}

ZuEvent* ZuEventMgr::takeFirst(qz::list<ZuEvent*>& pool) {
    ZuLockGuard hold(m_poolLock);
    if (pool.empty()) return nullptr;
    auto it = pool.begin();
    ZuEvent* event = *it;
    pool.erase(it);
    return event;
}

void ZuEventMgr::update(float delta) {
    if (m_readPool) {
        // The read pool gets no new entries (pushes go to the write pool), but
        // taking events one at a time keeps the lock out of procEvent.
        while (ZuEvent* event = takeFirst(*m_readPool)) {
            procEvent(event);
            event->release();
        }
    }
    // Entries pushed here while this loop runs are delivered in this update.
    while (ZuEvent* event = takeFirst(m_secondPool)) {
        procEvent(event);
        event->release();
    }
    ZuLockGuard hold(m_poolLock);
    qz::list<ZuEvent*>* exchanged = m_readPool;
    m_readPool = m_writePool;
    m_writePool = exchanged;
}

void ZuEventMgr::clearAllEventProcer() {
    for (uint32_t i = 0; i < m_receivers.size(); ++i) m_receivers[i]->release();
    m_receivers.clear();
}

void ZuEventMgr::releaseAll(qz::list<ZuEvent*>& pool) {
    for (auto it = pool.begin(); it != pool.end(); ++it) (*it)->release();
    pool.clear();
}

void ZuEventMgr::clearAllEvent() {
    ZuLockGuard hold(m_poolLock);
    m_readPool = nullptr;
    m_writePool = nullptr;
    releaseAll(m_poolA);
    releaseAll(m_poolB);
    releaseAll(m_secondPool);
}
