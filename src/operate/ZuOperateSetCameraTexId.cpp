#include "operate/ZuOperateSetCameraTexId.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateSetCameraTexId::makeBackground(const char* renderType, const char* renderName, bool setFormat) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!global || !global->getTexMgr() || !target || !nodes || !nodes->getCreator()) return;

    qz::string name = scene;
    name += "_background";
    nodes->delNode(name.c_str());
    nodes->delNode(renderName);
    ZuBackGroundExtTextureNode* background = dynamic_cast<ZuBackGroundExtTextureNode*>(
        nodes->getCreator()->createNode("ZuBackGroundExtTextureNode", scene.c_str(), name.c_str()));
    if (!background) return;
    Camera* camera = global->getConfig() ? global->getConfig()->getCamera(scene.c_str()) : nullptr;
    background->setBackgroundSize(BG_TEXTURE, width, height, camera ? static_cast<float>(camera->angle) : 0.0f);
    if (setFormat) background->setTexInformat(format);

    // The host's name, wrapped: the cache never deletes it.
    qz::string textureName = name;
    textureName += "_tex";
    global->getTexMgr()->removeTexture(textureName.c_str());
    background->setExtTexture(global->getTexMgr()->bindCameraTexture(textureName.c_str(), texture, width, height));
    background->debug(false);
    target->addChild(background);

    if (ZuNode* drawer = nodes->getCreator()->createNode(renderType, scene.c_str(), renderName))
        target->addChild(drawer);
}

void ZuOperateSetCameraTexId::process(float) {
    qz::string renderName = scene;
    renderName += "_background";
    renderName += "render";
    makeBackground("ZuBgRenderNode", renderName.c_str(), true);
}
