#include "operate/ZuOperateSaveEft.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuScene.h"
#include "scene/ZuVisitCollectResID.h"

void ZuOperateSaveEft::process(float) {
    ZuScene* target = zuop::scene(app, scene.c_str());
    if (!target) return;
    ZuVisitCollectResID* collect = new ZuVisitCollectResID(resUID);
    target->deepVisit(collect);
    collect->release();
}
