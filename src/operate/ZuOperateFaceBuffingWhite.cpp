#include "operate/ZuOperateFaceBuffingWhite.h"

#include "event/ZuEventMgr.h"
#include "event/ZuFaceBeautifyEvent.h"
#include "operate/ZuOperateSceneAccess.h"

void ZuOperateFaceBuffingWhite::process(float) {
    ZuEventMgr* events = zuop::eventMgr(app);
    if (!events) return;
    ZuFaceBeautifyEvent* event = new ZuFaceBeautifyEvent(scene.c_str());
    event->id = resUID;
    event->resUID = resUID;
    event->v0 = smooth;
    event->v1 = white;
    if (!events->pushEvent(event)) event->release();
}
