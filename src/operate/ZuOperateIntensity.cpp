#include "operate/ZuOperateIntensity.h"

#include "event/ZuEventMgr.h"
#include "event/ZuIntensityUpdateEnvet.h"
#include "operate/ZuOperateSceneAccess.h"

void ZuOperateIntensity::process(float) {
    ZuEventMgr* events = zuop::eventMgr(app);
    if (!events) return;
    ZuIntensityUpdateEnvet* event = new ZuIntensityUpdateEnvet(scene.c_str());
    event->id = resUID;
    event->resUID = resUID;
    event->value = value;
    if (!events->pushEvent(event)) event->release();
}
