#include "node/camera/ZuBgRenderNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "node/camera/BGTexture.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/object/ZuRenderObject.h"

ZuBgRenderNode::ZuBgRenderNode(ZuAppMain* app) : ZuNode(app) { setType("ZuBgRenderNode"); }

void ZuBgRenderNode::zuinit() {
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    if (!material) material = new ZuMaterial(app, "screennor");
}

void ZuBgRenderNode::zudestroy() {
    if (material) material->destroy();
    qzSafeRelease(material);
    ZuNode::zudestroy();
}

bool ZuBgRenderNode::placeBackground() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    BGTexture* image = param ? param->getBgTexture(m_sceneName.c_str()) : nullptr;
    if (!image || !getRenderObject() || !material) return false;
    image->placeOn(app, m_sceneName.c_str(), getRenderObject(), material);
    return true;
}

void ZuBgRenderNode::update(float dt) {
    ZuNode::update(dt);
    placeBackground();
}

void ZuBgRenderNode::render() {
    if (!isVisible()) return;
    if (ZuRenderObject* object = getRenderObject()) object->pushCmd(getActiveRenderScene(), RS_BG_RENDER, "bg_render");
}
