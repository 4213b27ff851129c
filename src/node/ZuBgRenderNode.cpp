#include "node/ZuBgRenderNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "node/BGTexture.h"
#include "render/RENDERSTREAMTYPE.h"
#include "render/ZuMaterial.h"
#include "render/ZuRenderObject.h"

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
    ZuRenderObject* object = getRenderObject();
    if (!image || !object || !material) return false;
    ZuConfig* config = app->getGlobalMgr() ? app->getGlobalMgr()->getConfig() : nullptr;
    int angle = config ? config->getCamera(m_sceneName.c_str())->angle : 0;
    object->setMesh(BGTexture::meshForAngle(BGTexture::renderDataOf(app), angle, object->getMesh()));
    material->setTexcoordFlip(1.0f, 1.0f);
    material->setTexture0FBO(image->getFbo(), true);
    object->setMaterial(material);
    return true;
}

void ZuBgRenderNode::update(float dt) {
    ZuNode::update(dt);
    placeBackground();
}

void ZuBgRenderNode::render() {
    if (ZuRenderObject* object = getRenderObject()) object->pushCmd(getActiveRenderScene(), RS_BG_RENDER, "bg_render");
}
