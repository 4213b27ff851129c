#include "operate/ZuOperateCreateOutSteam.h"

#include "basesys/Camera.h"
#include "node/output/ZuDataTransNode.h"
#include "node/output/ZuOutputPath.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

ZuDataTransNode* ZuOperateCreateOutSteam::createTransNode(const char* nodeName, int width, int height) {
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    Camera* camera = ZuOutputPath::camera(app, scene.c_str());
    if (!target || !nodes || !nodes->getCreator() || !camera) return nullptr;
    ZuDataTransNode* node = dynamic_cast<ZuDataTransNode*>(
        nodes->getCreator()->createNode("ZuDataTransNode", scene.c_str(), nodeName));
    if (!node) return nullptr;
    node->setOutMirror(mirror);
    node->setOutInvert(invert);
    node->setOutFormate(format, width > 0 ? width : camera->width, height > 0 ? height : camera->height);
    node->debug(false);
    target->addChild(node);
    return node;
}

void ZuOperateCreateOutSteam::process(float) {
    qz::string name = scene;
    name += "_dataout";
    createTransNode(name.c_str(), 0, 0);
}
