#include "operate/ZuOperateRegistProcer.h"

#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"

ZuOperateRegistProcer::ZuOperateRegistProcer(ZuAppMain* app, ZuEventProc* proc) : ZuOperateBase(app), proc(proc) {
    if (proc) proc->retain();
}

ZuOperateRegistProcer::~ZuOperateRegistProcer() { qzSafeRelease(proc); }

void ZuOperateRegistProcer::process(float) {
    if (ZuEventMgr* events = eventMgr()) events->registProcer(proc);
}
