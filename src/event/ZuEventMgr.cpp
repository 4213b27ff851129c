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

bool ZuEventMgr::pushEvent(ZuEvent* event) {
    if (!event) return false;
    ZuLockGuard hold(m_poolLock);
    if (!m_writePool) return false;
    m_writePool->push_back(event);
    return true;
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
            for (uint32_t c = 0; c < m_cursors.size(); ++c) {
                Cursor* cursor = m_cursors[c];
                if (i < cursor->next) --cursor->next;
                if (i < cursor->end) --cursor->end;
            }
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
    // Receivers appended during the walk lie at or past the end taken here.
    Cursor cursor{0, m_receivers.size()};
    m_cursors.push_back(&cursor);
    while (cursor.next < cursor.end) {
        ZuEventProc* proc = m_receivers[cursor.next++];
        // Held while it runs, so a receiver may unregister or delete itself
        // (and its package) from inside its own handler.
        proc->retain();
        bool passOn = proc->procEvent(event);
        proc->release();
        if (!passOn) break;
    }
    // Nested walks finish first, so this one is the last cursor.
    m_cursors.erase(m_cursors.size() - 1);
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
    for (uint32_t c = 0; c < m_cursors.size(); ++c) m_cursors[c]->next = m_cursors[c]->end = 0;
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
