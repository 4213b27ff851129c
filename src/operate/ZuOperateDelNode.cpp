#include "operate/ZuOperateDelNode.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateDelNode::process(float) {
    if (ZuNodeMgr* nodes = zuop::nodeMgr(app)) nodes->delNode(uid);
}
