#include "operate/ZuOperateQueue.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuParseEvent.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateParse.h"

ZuOperateQueue::~ZuOperateQueue() {
    if (lock.isCreated()) destroy();
}

void ZuOperateQueue::init() {
    ZuConfig* config = ZuGBase::configOf(app);
    if (config) {
        maxAddQueueNum = config->maxAddQueueNum;
        playDeltaTime = config->playDeltaTime * 1000.0f;
    }
    elapsed = playDeltaTime;
    if (!lock.isCreated()) lock.create();
    if (!modeLock.isCreated()) modeLock.create();
    if (ZuEventMgr* events = eventMgr())
        events->registProcer(this);
}

void ZuOperateQueue::destroy() {
    if (ZuEventMgr* events = eventMgr())
        events->unregistProcer(this);
    if (lock.isCreated()) {
        clearOperate();
        lock.destroy();
    }
    if (modeLock.isCreated()) modeLock.destroy();
}

void ZuOperateQueue::addOperate(ZuOperateBase* op) {
    if (!op || !lock.isCreated()) return;
    ZuLockGuard guard(lock);
    // The capacity counts past the last slot: at most maxAddQueueNum + 1 wait.
    if (maxAddQueueNum < queue.size()) return;
    op->retain();
    queue.push_back(op);
    if (idle) {
        idle = false;
        trig = true;
    }
}

void ZuOperateQueue::clearOperate() {
    if (!lock.isCreated()) return;
    ZuLockGuard guard(lock);
    for (auto it = queue.begin(); it != queue.end(); ++it) (*it)->release();
    queue.clear();
}

uint32_t ZuOperateQueue::waiting() {
    if (!lock.isCreated()) return 0;
    ZuLockGuard guard(lock);
    return queue.size();
}

void ZuOperateQueue::setExitMode(const qz::string& mode) {
    if (!modeLock.isCreated()) return;
    ZuLockGuard guard(modeLock);
    exitMode = mode;
}

qz::string ZuOperateQueue::getExitMode() {
    if (!modeLock.isCreated()) return exitMode;
    ZuLockGuard guard(modeLock);
    return exitMode;
}

void ZuOperateQueue::update(float delta) {
    if (!trig) return;
    elapsed += delta;
    if (elapsed < playDeltaTime) return;
    elapsed = 0.0f;
    trig = false;
    ZuOperateBase* next = nullptr;
    if (lock.isCreated()) {
        ZuLockGuard guard(lock);
        if (!queue.empty()) {
            auto first = queue.begin();
            next = *first;
            queue.erase(first);
        } else {
            // Under the lock, so that an effect added meanwhile finds the
            // queue idle and starts it.
            idle = true;
            elapsed = playDeltaTime;
            return;
        }
    }
    if (next) {
        ZuOperateMgr* operates = operateMgr();
        ZuOperateParse* parse = dynamic_cast<ZuOperateParse*>(next);
        runningResUID = parse ? parse->getResUID() : -1;
        // Reset before the hand-over: the load thread may parse the new
        // package's own mode at once.
        setExitMode("timeoutAndLoop");
        if (operates) operates->pushLoadOperate(next);
        next->release();
        return;
    }
    idle = true;
    elapsed = playDeltaTime;
}

bool ZuOperateQueue::procEvent(ZuEvent* event) {
    if (!event) return true;
    qz::string mode = getExitMode();
    if (event->type == ZU_EVENT_TIMEOUT) {
        if (!(mode == "loop")) trig = true;
    } else if (event->type == ZU_EVENT_ANIMATE && event->name == "aniStop") {
        // Only the stop that brings the count down to 0 ends the effect: a
        // package without animations (count already 0) goes to -1 and plays
        // on, so stops from other effects cannot cut it short.
        if (!(mode == "timeout") && --maxAnimateNum == 0) trig = true;
    } else if (event->type == ZU_EVENT_PARSE && !idle && runningResUID >= 0 &&
               !static_cast<ZuParseEvent*>(event)->success &&
               static_cast<ZuParseEvent*>(event)->parsedResUID == runningResUID) {
        // A package that could not load will never end by itself.
        trig = true;
    }
    return true;
}
