#include "operate/ZuOperateSetCameraFormate.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenCamera.h"
#include "data/ZuDataMgr.h"
#include "node/camera/ZuBackGroundNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

int ZuOperateSetCameraFormate::cameraFormatOf(int hostFormat) {
    switch (hostFormat) {
    case 0: return CIF_NV21;
    case 1: return CIF_NV12;
    case 2: return CIF_YV12;
    case 3: return CIF_I420;
    case 4: return CIF_RGBA;
    case 5: return CIF_BGRA;
    default: return CIF_NONE;
    }
}

BGType ZuOperateSetCameraFormate::backgroundTypeOf(int hostFormat) {
    switch (hostFormat) {
    case 0: return BG_NV21;
    case 1: return BG_NV12;
    case 2: return BG_YV12;
    case 3: return BG_I420;
    case 4: return BG_RGBA;
    case 5: return BG_BGRA;
    default: return BG_NONE;
    }
}

void ZuOperateSetCameraFormate::makeBackground(const char* renderType, const char* renderName) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    if (!global || !global->getConfig()) return;
    global->getConfig()->cameraImageFormat = cameraFormatOf(hostFormat);
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!target || !nodes || !nodes->getCreator()) return;

    qz::string name = scene;
    name += "background";
    nodes->delNode(name.c_str());
    nodes->delNode(renderName);
    ZuBackGroundNode* background = dynamic_cast<ZuBackGroundNode*>(
        nodes->getCreator()->createNode("ZuBackGroundNode", scene.c_str(), name.c_str()));
    if (!background) return;
    Camera* camera = global->getConfig()->getCamera(scene.c_str());
    background->setDataGen(global->getDataMgr() ? global->getDataMgr()->getDataGenCamera(scene.c_str()) : nullptr);
    background->setBackgroundSize(backgroundTypeOf(hostFormat), camera->width, camera->height,
                                  static_cast<float>(camera->angle));
    background->debug(false);
    target->addChild(background);

    if (ZuNode* drawer = nodes->getCreator()->createNode(renderType, scene.c_str(), renderName))
        target->addChild(drawer);
}

void ZuOperateSetCameraFormate::process(float) {
    qz::string renderName = scene;
    renderName += "background";
    renderName += "render";
    makeBackground("ZuBgRenderNode", renderName.c_str());
}
