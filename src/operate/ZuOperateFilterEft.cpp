#include "operate/ZuOperateFilterEft.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "scene/ZuDiySys.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateFilterEft::process(float) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuDiySys* slots = global ? global->getDiySys() : nullptr;
    if (!slots || !ZuDiySys::detectResType(slot)) return;
    if (slots->setResType(slot, resUID) == -1) return;
    if (ZuNodeMgr* nodes = global->getNodeMgr()) nodes->delNodeByResID(resUID);
}
