#include "data/ZuDetectMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectAS.h"
#include "data/ZuDetectFP.h"
#include "data/ZuDetectST.h"
#include "data/ZuDetectSelf.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "platform/ZuLog.h"

ZuDetectMgr::ZuDetectMgr(ZuAppMain* app) : ZuGBase(app) { lock.create(); }

ZuDetectMgr::~ZuDetectMgr() {
    destroy();
    lock.destroy();
}

void ZuDetectMgr::init(DETECTTYPE newType) {
    if (newType < DETECTTYPE_NONE || newType > DETECTTYPE_SELF) {
        QZLOGW("ZuDetectMgr::init: unknown detect type %d refused", static_cast<int>(newType));
        return;
    }
    if (config())
        app->getGlobalMgr()->getConfig()->setDetectType(newType);

    ZuLockGuard guard(lock);
    if (newType == type) return;
    qzSafeRelease(detect);
    type = newType;
    switch (newType) {
    case DETECTTYPE_AS: detect = new ZuDetectAS(app); break;
    case DETECTTYPE_ST: detect = new ZuDetectST(app); break;
    case DETECTTYPE_FP: detect = new ZuDetectFP(app); break;
    case DETECTTYPE_SELF: detect = new ZuDetectSelf(app); break;
    default: break;
    }
}

void ZuDetectMgr::destroy() {
    ZuLockGuard guard(lock);
    type = DETECTTYPE_NONE;
    qzSafeRelease(detect);
}

void ZuDetectMgr::pushData(const char* sceneName, const void* record, int length) {
    bool accepted;
    {
        ZuLockGuard guard(lock);
        if (!detect) return;
        accepted = detect->pushData(sceneName, record, length);
    }
    if (!accepted) return;
    ZuEventMgr* events = eventMgr();
    if (!events) return;
    ZuEvent* event = new ZuEvent("", ZU_EVENT_DETECT_ARRIVED);
    if (!events->pushEvent(event)) event->release();
}
