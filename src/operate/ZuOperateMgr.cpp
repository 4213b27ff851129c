#include "operate/ZuOperateMgr.h"

#include "operate/ZuOperateBase.h"

#include <unistd.h>

ZuOperateMgr::ZuOperateMgr(ZuAppMain* app) : ZuGBase(app) {
    m_runList = &m_listA;
    m_pushList = &m_listB;
}

ZuOperateMgr::~ZuOperateMgr() { destroy(); }

void ZuOperateMgr::init(bool withLoadThread) {
    if (m_initialised) return;
    m_runLock.create();
    m_pushLock.create();
    m_runList = &m_listA;
    m_pushList = &m_listB;
    m_withLoadThread = withLoadThread;
    m_initialised = true;
    if (withLoadThread) {
        m_loadRunning = true;
        m_loadLock.create();
        m_loadThread = new std::thread([this] { asyncLoad(); });
    }
}

void ZuOperateMgr::destroy() {
    if (!m_initialised) return;
    if (m_withLoadThread) {
        m_loadRunning = false;
        if (m_loadThread) {
            m_loadThread->join();
            delete m_loadThread;
            m_loadThread = nullptr;
        }
        clearLoadOperate();
        m_loadLock.destroy();
    }
    clearOperate();
    m_runLock.destroy();
    m_pushLock.destroy();
    m_runList = nullptr;
    m_pushList = nullptr;
    m_initialised = false;
}

void ZuOperateMgr::update(float delta) {
    if (!m_initialised) return;
    ZuLockGuard running(m_runLock);
    {
        ZuLockGuard pushing(m_pushLock);
        qz::list<ZuOperateBase*>* exchanged = m_runList;
        m_runList = m_pushList;
        m_pushList = exchanged;
    }
    for (auto it = m_runList->begin(); it != m_runList->end(); ++it) {
        ZuOperateBase* op = *it;
        if (!op) continue;
        op->process(delta);
        op->release();
    }
    m_runList->clear();
}

void ZuOperateMgr::pushOperate(ZuOperateBase* op) {
    if (!op || !m_initialised) return;
    ZuLockGuard pushing(m_pushLock);
    op->retain();
    m_pushList->push_back(op);
}

void ZuOperateMgr::pushLoadOperate(ZuOperateBase* op) {
    if (!op || !m_withLoadThread || !m_initialised) return;
    ZuLockGuard loading(m_loadLock);
    op->retain();
    m_loadList.push_back(op);
    m_loadSleep = kSleepAfterPush;
}

bool ZuOperateMgr::hasOperate() {
    if (!m_initialised) return false;
    bool any;
    {
        ZuLockGuard running(m_runLock);
        any = !m_runList->empty();
    }
    if (any) return true;
    ZuLockGuard pushing(m_pushLock);
    return !m_pushList->empty();
}

void ZuOperateMgr::releaseAll(qz::list<ZuOperateBase*>& list) {
    for (auto it = list.begin(); it != list.end(); ++it)
        if (*it) (*it)->release();
    list.clear();
}

void ZuOperateMgr::clearOperate() {
    if (!m_pushList || !m_runList) return;
    {
        ZuLockGuard pushing(m_pushLock);
        releaseAll(*m_pushList);
    }
    ZuLockGuard running(m_runLock);
    releaseAll(*m_runList);
}

void ZuOperateMgr::clearLoadOperate() {
    if (!m_withLoadThread) return;
    ZuLockGuard loading(m_loadLock);
    releaseAll(m_loadList);
}

uint32_t ZuOperateMgr::loadSleepMicros() {
    if (!m_withLoadThread) return 0;
    ZuLockGuard loading(m_loadLock);
    return m_loadSleep;
}

void ZuOperateMgr::asyncLoad() {
    m_loadThreadId = std::this_thread::get_id();
    while (m_loadRunning) {
        ZuOperateBase* op = nullptr;
        uint32_t sleep;
        m_loadLock.lock();
        if (!m_loadList.empty()) {
            auto first = m_loadList.begin();
            op = *first;
            m_loadList.erase(first);
        }
        m_loadSleep = m_loadList.empty() ? kSleepIdle : kSleepWithWork;
        m_loadLock.unlock();

        if (op) {
            op->process(0.0f);
            op->release();
        }
        // Read after process: a push during it shortens this sleep to 10 ms.
        m_loadLock.lock();
        sleep = m_loadSleep;
        m_loadLock.unlock();
        usleep(sleep);
    }
}
