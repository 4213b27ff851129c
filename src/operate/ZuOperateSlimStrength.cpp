#include "operate/ZuOperateSlimStrength.h"

#include "event/ZuEventMgr.h"
#include "event/ZuSlimStrengthEvent.h"
#include "operate/ZuOperateSceneAccess.h"

ZuOperateSlimStrength::ZuOperateSlimStrength(ZuAppMain* app, const char* scene, int resUID, float value)
    : ZuOperateBase(app), scene(scene), resUID(resUID) {
    values[0] = value;
}

ZuOperateSlimStrength::ZuOperateSlimStrength(ZuAppMain* app, const char* scene, int resUID, float v0, float v1,
                                             float v2, float v3)
    : ZuOperateBase(app), scene(scene), resUID(resUID), values{v0, v1, v2, v3} {}

void ZuOperateSlimStrength::process(float) {
    ZuEventMgr* events = zuop::eventMgr(app);
    if (!events) return;
    ZuSlimStrengthEvent* event = new ZuSlimStrengthEvent(scene.c_str());
    event->id = resUID;
    event->resUID = resUID;
    event->v0 = values[0];
    event->v1 = values[1];
    event->v2 = values[2];
    event->v3 = values[3];
    if (!events->pushEvent(event)) event->release();
}
