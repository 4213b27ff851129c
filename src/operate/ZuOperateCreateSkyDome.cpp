#include "operate/ZuOperateCreateSkyDome.h"

#include "basesys/ZuGBase.h"
#include "operate/ZuOperateSceneAccess.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSkyDomeNode.h"

// The dome goes round the design plane's centre, where the default 3D camera
// looks; its picture loads on the load thread and the dome waits for it.
void ZuOperateCreateSkyDome::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    ZuTexMgr* textures = ZuGBase::texMgrOf(app);
    if (!nodes || !nodes->getCreator() || !textures) return;
    ZuScene* target = zuop::scene(app, scene.c_str());
    if (!target) {
        QZLOGW("sky dome: no scene '%s'", scene.c_str());
        return;
    }
    auto* node = dynamic_cast<ZuSkyDomeNode*>(
        nodes->getCreator()->createNode("ZuSkyDomeNode", scene.c_str(), "skyDome"));
    if (!node) return;
    node->setresUID(resUID);
    node->setRenderOrder(renderOrder);
    node->setPositionX(360.0f, 640.0f, 0.0f);
    node->generateSkyDome(textures->getTexture(path.c_str(), true, false), ZuSkyDomeNode::kColumns,
                          ZuSkyDomeNode::kRows, ZuSkyDomeNode::kTextureRepeat, ZuSkyDomeNode::kCoverage,
                          ZuSkyDomeNode::kRadius);
    target->addChild(node);
}
