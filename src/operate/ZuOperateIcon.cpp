#include "operate/ZuOperateIcon.h"

#include "node/output/ZuIconNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateIcon::process(float) {
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!target || !nodes || !nodes->getCreator()) return;
    ZuIconNode* icon = dynamic_cast<ZuIconNode*>(nodes->getCreator()->createNodeEx("ZuIconNode"));
    if (!icon) return;
    // Made without a scene: the thumbnail follows the one it hangs in.
    icon->setSceneName(scene.c_str());
    icon->setIconSize(width, height);
    icon->debug(true);
    target->addChild(icon);
}
