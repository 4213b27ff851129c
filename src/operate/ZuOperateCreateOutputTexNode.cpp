#include "operate/ZuOperateCreateOutputTexNode.h"

#include "basesys/Camera.h"
#include "node/output/ZuDataOutputTexNode.h"
#include "node/output/ZuOutputPath.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateCreateOutputTexNode::process(float) {
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    Camera* camera = ZuOutputPath::camera(app, scene.c_str());
    if (!target || !nodes || !nodes->getCreator() || !camera) return;
    ZuDataOutputTexNode* node = dynamic_cast<ZuDataOutputTexNode*>(
        nodes->getCreator()->createNode("ZuDataOutputTexNode", scene.c_str(), nodeName.c_str()));
    if (!node) return;
    node->setOutMirror(mirror);
    node->setOutInvert(invert);
    node->setOutputTexture(texId, camera->width, camera->height);
    node->setOutTextureType(format);
    target->addChild(node);
}
