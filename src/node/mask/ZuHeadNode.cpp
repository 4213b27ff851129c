#include "node/mask/ZuHeadNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/ZuRenderCamera.h"
#include "event/ZuAnimateEvent.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "node/mask/ZuTexHeadMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuNodeMgr.h"

#include <GLES2/gl2.h>

namespace {
const uint16_t kIndices[6] = {0, 1, 2, 2, 3, 1};
}

ZuHeadNode::ZuHeadNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuHeadNode");
    setRenderOrder(16);
}

void ZuHeadNode::zuinit() {
    ZuNode::zuinit();
    listenEvent();
    setCanProcEvent(true);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuTexHeadMaterial(app);
    material->setTexcoordFlip(1.0f, -1.0f);
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setDepthTest(false);
    material->setCull(false, GL_CCW, GL_BACK);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexNum(4);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    for (int i = 0; i < 4; ++i) {
        Vertex& v = vertices[i];
        v.x = (i & 1) ? 0.5f : -0.5f;
        v.y = i < 2 ? -0.5f : 0.5f;
        v.r = v.g = v.b = v.a = 255;
        v.u = (i & 1) ? 1.0f : 0.0f;
        v.v = i < 2 ? 0.0f : 1.0f;
    }
    mesh->setVertexData(vertices, sizeof vertices);
    mesh->setIndexData(kIndices, sizeof kIndices, 6);
    ZuConfig* config = configOf(app);
    sceneWidth = config ? static_cast<float>(config->getWidth()) : 0.0f;
    sceneHeight = config ? static_cast<float>(config->getHeight()) : 0.0f;
}

void ZuHeadNode::zudestroy() {
    unlistenEvent();
    show = false;
    if (material) material->destroy();
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    qzSafeRelease(headTexture);
    qzSafeRelease(maskTexture);
    qzSafeRelease(frameTexture);
    ZuNode::zudestroy();
}

void ZuHeadNode::setTexture(ZuTexture* texture) { qzAssignRetained(headTexture, texture); }
void ZuHeadNode::setMaskTexture(ZuTexture* texture) { qzAssignRetained(maskTexture, texture); }
void ZuHeadNode::setFrameTexture(ZuTexture* texture) { qzAssignRetained(frameTexture, texture); }

void ZuHeadNode::setTextureSize(float width, float height) {
    textureWidth = width;
    textureHeight = height;
}

bool ZuHeadNode::isReady() {
    if (!headTexture) return false;
    return headTexture->getbLoad() || headTexture->getid() > 0;
}

void ZuHeadNode::update(float delta) {
    ZuNode::update(delta);
    if (!material || !mesh) return;
    material->setTexture0(headTexture);
    material->setTexture1(maskTexture);
    material->setTexture2(frameTexture);
    // The picture is placed in the pixels of the camera the scene draws
    // with, as its sticker is; the configured size stands in without one.
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    const bool cameraPixels = param && param->activeCamera && param->activeCamera->getWidth() > 0 &&
                              param->activeCamera->getHeight() > 0;
    if (cameraPixels) {
        sceneWidth = param->activeCamera->getWidth();
        sceneHeight = param->activeCamera->getHeight();
    }
    if (xOffset == -1.0f) {
        // Those pixels are the sticker's too: no offset. With the configured
        // size, the camera picture is centred in it.
        ZuConfig* config = configOf(app);
        Camera* camera = config ? config->getCamera(m_sceneName.c_str()) : nullptr;
        if (cameraPixels) {
            xOffset = 0.0f;
        } else if (camera) {
            const bool upright = camera->angle != 90 && camera->angle != 270;
            xOffset = (sceneWidth - static_cast<float>(upright ? camera->width : camera->height)) * 0.5f;
        }
    }
    float x = 0.0f, y = 0.0f;
    const char* bone = linkBone.c_str();
    show = linkSpine && linkSpine->getHeadNodePosition(x, y, bone) && linkSpine->isVisible();
    if (!show || sceneWidth <= 0.0f || sceneHeight <= 0.0f) return;
    const float alpha = linkSpine->getSlotAlpha(bone);
    if (xOffset != -1.0f) x += xOffset;
    float w = textureWidth != 0.0f ? textureWidth : (headTexture ? static_cast<float>(headTexture->getwidth()) : 0.0f);
    float h = textureHeight != 0.0f ? textureHeight : (headTexture ? static_cast<float>(headTexture->getheight()) : 0.0f);
    linkSpine->setHeadNodeScale(bone, w, h);
    const float left = x - w * 0.5f, right = x + w * 0.5f, bottom = y - h * 0.5f, top = y + h * 0.5f;
    const uint8_t a = static_cast<uint8_t>(alpha <= 0.0f ? 0 : alpha >= 1.0f ? 255 : static_cast<int>(alpha * 255.0f));
    for (int i = 0; i < 4; ++i) {
        float px = (i & 1) ? right : left;
        float py = i < 2 ? bottom : top;
        linkSpine->setHeadNodeRotatedPosition(bone, x, y, px, py);
        vertices[i].x = 2.0f * px / sceneWidth - 1.0f;
        vertices[i].y = 2.0f * py / sceneHeight - 1.0f;
        vertices[i].r = vertices[i].g = vertices[i].b = 255;
        vertices[i].a = a;
    }
    mesh->setVertexData(vertices, sizeof vertices);
    if (ZuRenderObject* object = getRenderObject()) {
        object->setMesh(mesh);
        object->setMaterial(material);
    }
}

void ZuHeadNode::render() {
    ZuRenderScene* scene = getActiveRenderScene();
    ZuRenderObject* object = getRenderObject();
    if (!show || !scene || !object) return;
    object->pushCmd(scene, 16, "zuTexMountToSpine");
}

bool ZuHeadNode::procEvent(ZuEvent* event) {
    ZuAnimateEvent* animate = event && event->type == ZU_EVENT_ANIMATE ? dynamic_cast<ZuAnimateEvent*>(event) : nullptr;
    if (!animate || !m_parent || animate->nodeUid != m_parent->getuid() || !linkSpine) return true;
    if (!(animate->animationName == linkSpine->getaniName()) || !(animate->name == "aniStop")) return true;
    ZuNodeMgr* nodes = nodeMgrOf(app);
    if (!nodes) return true;
    qzSafeRelease(headTexture);
    // The manager's reference goes with delNode; ours keeps this alive
    // until the call returns.
    retain();
    nodes->delNode(getuid());
    release();
    return true;
}
