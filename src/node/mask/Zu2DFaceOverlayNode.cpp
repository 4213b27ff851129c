#include "node/mask/Zu2DFaceOverlayNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "event/ZuEffectEvent.h"
#include "node/camera/BGTexture.h"
#include "node/face/ZuNodePerson.h"
#include "node/mask/Zu2DFaceMaskASNode.h"
#include "node/mask/Zu2DFaceMaskFPNode.h"
#include "node/mask/Zu2DFaceMaskSTNode.h"
#include "node/mask/Zu2DFaceMaskZUNode.h"
#include "node/mask/ZuFaceFrame.h"
#include "person/ZuPerson.h"
#include "render/ZuRenderCamera.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"

#include <GLES2/gl2.h>

Zu2DFaceOverlayNode::Zu2DFaceOverlayNode(ZuAppMain* app) : ZuNode(app) { setType("Zu2DFaceOverlayNode"); }

void Zu2DFaceOverlayNode::zuinit() {
    ZuNode::zuinit();
    ZuConfig* config = ZuGBase::configOf(app);
    switch (config ? config->getDetectType() : DETECTTYPE_NONE) {
    case DETECTTYPE_AS: inner = new Zu2DFaceMaskASNode(app); break;
    case DETECTTYPE_ST: inner = new Zu2DFaceMaskSTNode(app); break;
    case DETECTTYPE_FP: inner = new Zu2DFaceMaskFPNode(app); break;
    default: inner = new Zu2DFaceMaskZUNode(app); break;
    }
    inner->setSceneName(getSceneName().c_str());
    inner->setname((getname() + "_inner").c_str());
    inner->zuinit();
    inner->initMesh(innerMeshType() == 1 ? FACEMASK2D_SIMPLIFY : FACEMASK2D_FULL);
    // The inner node only computes points; its material never draws.
    ZuMaterial* plain = new ZuMaterial(app, "drawface2d");
    inner->setMaterial(plain);
    plain->release();
    material = new ZuMaterial(app, "3dFaceReal");
    mesh = new ZuRenderMesh();
    mesh->setVertexType(static_cast<VFTYPE>(VF_POS3 | VF_TEX0));
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    if (inner->getTriangleCount() > 0)
        mesh->setIndexData(inner->getIndices(), inner->getTriangleCount() * 3 * static_cast<int>(sizeof(uint16_t)),
                           inner->getTriangleCount() * 3);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    setVisible(false);
    listenEvent();
}

void Zu2DFaceOverlayNode::zudestroy() {
    unlistenEvent();
    if (inner) {
        inner->zudestroy();
        qzSafeRelease(inner);
    }
    qzSafeRelease(mesh);
    qzSafeRelease(material);
    ZuNode::zudestroy();
}

bool Zu2DFaceOverlayNode::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_EFFECT && event->resUID == getresUID()) setVisible(true);
    return ZuNode::procEvent(event);
}

void Zu2DFaceOverlayNode::update(float dt) {
    ZuNode::update(dt);
    drawing = false;
    if (!inner || !material || !mesh) return;
    inner->setpersonID(getpersonID());
    inner->update(dt);
    ZuGlobalParam* param = app->getGlobalParam();
    BGTexture* background = param ? param->getBgTexture(getSceneName().c_str()) : nullptr;
    ZuConfig* config = ZuGBase::configOf(app);
    Camera* sceneCamera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    ZuRenderCamera* camera = ZuFaceFrame::camera(app);
    float w = 0.0f, h = 0.0f;
    if (inner->getLiveCount() == 0 || !background || !background->getFbo() || !sceneCamera || !camera ||
        !ZuFaceFrame::size(this, &w, &h) || inner->getLiveCount() > kMaxPoints)
        return;
    const int count = fillVertices(inner, w, h, sceneCamera->angle, vertices);
    if (count == 0) return;
    mesh->setVertexData(vertices, count * 5 * static_cast<int>(sizeof(float)));
    mesh->setVertexNum(count);
    material->setDepthTest(true);
    material->setDepthFunc(GL_LEQUAL);
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setTexture0FBO(background->getFbo());
    material->setTexcoordFlip(1.0f, 1.0f);
    float model[16];
    ZuFaceFrame::modelMatrix(camera, w, h, model);
    material->setModelMatrix(model);
    material->setVPMatrix(camera->getVPMat());
    if (ZuRenderObject* object = getRenderObject()) {
        object->setMaterial(material);
        object->setMesh(mesh);
    }
    drawing = true;
}

void Zu2DFaceOverlayNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!isVisible() || !drawing || !object) return;
    ZuPerson* person = ZuNodePerson::of(this);
    if (!person || !person->getExist()) return;
    object->pushCmd(getActiveRenderScene(), static_cast<RENDERSTREAMTYPE>(stream()), "2dRealFace");
}
