#include "operate/ZuOperateDestroyNode.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateDestroyNode::process(float) {
    if (ZuNodeMgr* nodes = zuop::nodeMgr(app)) nodes->delNode(name.c_str());
}
