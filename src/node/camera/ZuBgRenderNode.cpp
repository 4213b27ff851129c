#include "node/camera/ZuBgRenderNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "node/camera/BGTexture.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuFboCopyRenderObject.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderMgr.h"
#include "scene/ZuScene.h"

ZuBgRenderNode::ZuBgRenderNode(ZuAppMain* app) : ZuNode(app) { setType("ZuBgRenderNode"); }

void ZuBgRenderNode::zuinit() {
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    if (!material) material = new ZuMaterial(app, "screennor");
    if (!copyObject) copyObject = new ZuFboCopyRenderObject(app);
}

void ZuBgRenderNode::zudestroy() {
    qzSafeRelease(material);
    qzSafeRelease(copyObject);
    ZuNode::zudestroy();
}

bool ZuBgRenderNode::placeBackground() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    BGTexture* image = param ? param->getBgTexture(m_sceneName.c_str()) : nullptr;
    if (!image || !getRenderObject() || !material) return false;
    image->placeOn(app, m_sceneName.c_str(), getRenderObject(), material);
    return true;
}

bool ZuBgRenderNode::copiesExactly() const {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    BGTexture* image = param ? param->getBgTexture(m_sceneName.c_str()) : nullptr;
    ZuFboObject* source = image ? image->getFbo() : nullptr;
    ZuScene* scene = getScene();
    ZuFboObject* target = scene ? scene->getFbo() : nullptr;
    ZuRenderData* data = ZuRenderMgr::renderDataOf(app);
    if (!source || !target || !data || !copyObject || !material) return false;
    // The draw samples texel centres one to one only unturned, unflipped,
    // unblended and between targets of one size.
    return getRenderObject()->getMesh() == data->meshFull && !material->getBlendEnable() &&
           source->getMainTex() && target->getMainTex() && source->getFrameWidth() == target->getFrameWidth() &&
           source->getFrameHeight() == target->getFrameHeight();
}

void ZuBgRenderNode::update(float dt) {
    ZuNode::update(dt);
    copyOnly = placeBackground() && copiesExactly();
    if (copyOnly) {
        ZuGlobalParam* param = app->getGlobalParam();
        copyObject->setSource(param->getBgTexture(m_sceneName.c_str())->getFbo());
    }
}

void ZuBgRenderNode::render() {
    if (!isVisible()) return;
    if (copyOnly) {
        copyObject->pushCmd(getActiveRenderScene(), RS_BG_RENDER, "bg_render");
        return;
    }
    if (ZuRenderObject* object = getRenderObject()) object->pushCmd(getActiveRenderScene(), RS_BG_RENDER, "bg_render");
}
