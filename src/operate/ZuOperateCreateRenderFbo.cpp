#include "operate/ZuOperateCreateRenderFbo.h"

#include "node/output/ZuInputFboRenderNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateCreateRenderFbo::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!nodes || !nodes->getCreator()) return;
    ZuNode* node = nodes->getCreator()->createNode(type.c_str(), scene.c_str(), name.c_str());
    if (ZuInputFboRenderNode* copy = dynamic_cast<ZuInputFboRenderNode*>(node)) copy->setFBO(scene.c_str(), fbo);
    ZuScene* target = zuop::scene(app, scene.c_str());
    if (node && target) target->addChild(node);
}
