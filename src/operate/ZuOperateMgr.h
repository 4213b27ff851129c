#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzList.h"

#include <atomic>
#include <cstdint>
#include <thread>

class ZuOperateBase;

// Owns the two frame queues and the load thread.
//
// Any thread pushes; the render thread runs everything pushed since the last
// frame in update, in push order. An operation pushed while the frame's
// operations run lands on the other list and runs next frame, so a chain of
// operations advances one link a frame. The load thread polls its own queue
// every 10, 15 or 30 ms and runs one entry at a time.
class ZuOperateMgr : public ZuGBase {
public:
    explicit ZuOperateMgr(ZuAppMain* app);
    ~ZuOperateMgr() override;

    void init(bool withLoadThread);
    // Stops and joins the load thread, then releases every queued entry without running it.
    void destroy();

    virtual void update(float delta);

    void pushOperate(ZuOperateBase* op);
    void pushLoadOperate(ZuOperateBase* op);

    bool hasOperate();
    void clearOperate();
    void clearLoadOperate();

    bool isLoadThread() const { return std::this_thread::get_id() == m_loadThreadId.load(); }
    uint32_t loadSleepMicros();

    static constexpr uint32_t kSleepAfterPush = 10000;
    static constexpr uint32_t kSleepWithWork = 15000;
    static constexpr uint32_t kSleepIdle = 30000;

private:
    void asyncLoad();
    static void releaseAll(qz::list<ZuOperateBase*>& list);

    qz::list<ZuOperateBase*> m_listA;
    qz::list<ZuOperateBase*> m_listB;
    qz::list<ZuOperateBase*>* m_runList = nullptr;
    qz::list<ZuOperateBase*>* m_pushList = nullptr;
    ZuLock m_runLock;
    ZuLock m_pushLock;
    bool m_withLoadThread = false;
    std::thread* m_loadThread = nullptr;
    std::atomic<std::thread::id> m_loadThreadId{};
    std::atomic<bool> m_loadRunning{false};
    uint32_t m_loadSleep = kSleepAfterPush;
    qz::list<ZuOperateBase*> m_loadList;
    ZuLock m_loadLock;
    bool m_initialised = false;
};
