#include "operate/ZuOperateDelEft.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateDelEft::process(float) {
    if (ZuNodeMgr* nodes = zuop::nodeMgr(app)) nodes->delNodeByResID(resUID);
}
