#pragma once

#include "basesys/ZuLock.h"
#include "basesys/qzList.h"
#include "basesys/qzString.h"
#include "event/ZuEventProc.h"

#include <atomic>

class ZuOperateBase;

// Plays effect packages one after another: when the playing one ends (its
// time-out, its animations stopping, or either, as its "existMode" says) and
// a pause has passed, the next is handed to the load thread.
//
// A package that fails to load sends no end events; the queue then goes on
// to the next one when it hears of the failure, instead of standing still.
class ZuOperateQueue : public ZuEventProc {
public:
    explicit ZuOperateQueue(ZuAppMain* app) : ZuEventProc(app) {}
    ~ZuOperateQueue() override;

    void init();
    void destroy();

    // Any thread. Beyond the capacity the effect is dropped.
    void addOperate(ZuOperateBase* op);
    // Any thread: drops what waits; the playing effect goes on.
    void clearOperate();
    virtual void update(float delta);
    bool procEvent(ZuEvent* event) override;

    void setMaxAnimateNum(int count) { maxAnimateNum = count; }
    // May come from the load thread.
    void setExitMode(const qz::string& mode);
    qz::string getExitMode();
    bool hasOperate() const { return true; }

    uint32_t waiting();
    bool isIdle() const { return idle; }

private:
    qz::list<ZuOperateBase*> queue;
    ZuLock lock;
    uint32_t maxAddQueueNum = 0;
    // Flags the host threads and the render thread share; idle changes only
    // under the lock, together with the queue it describes.
    std::atomic<bool> trig{false};
    std::atomic<bool> idle{true};
    float elapsed = 0.0f;
    float playDeltaTime = 0.0f;
    int maxAnimateNum = 0;
    qz::string exitMode = "timeoutAndLoop";
    int runningResUID = -1;  // of the package handed out last
    ZuLock modeLock;
};
