#include "operate/ZuOperateFilterMoon.h"

#include "node/filter/ZuFilterNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

#include <string>

void ZuOperateFilterMoon::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!nodes || !nodes->getCreator()) return;
    const std::string name = std::string(scene.c_str()) + "filterGather";
    auto* node = dynamic_cast<ZuFilterNode*>(nodes->getCreator()->createNode("ZuFilterNode", scene.c_str(),
                                                                             name.c_str()));
    if (!node) return;
    node->setParameter(parameter);
    if (ZuScene* target = zuop::scene(app, scene.c_str())) target->addChild(node);
}
