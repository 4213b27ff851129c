#include "operate/ZuOperateCreateSkyDome.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

// The dome node type builds its own mesh and loads the texture from its
// path once it exists in the registry; until then there is nothing to make.
void ZuOperateCreateSkyDome::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!nodes || !nodes->getCreator()) return;
    ZuNode* node = nodes->getCreator()->createNode("ZuSkyDomeNode", scene.c_str(), "skyDome");
    if (!node) return;
    node->setresUID(resUID);
    node->setRenderOrder(renderOrder);
    if (ZuScene* target = zuop::scene(app, scene.c_str())) target->addChild(node);
}
