#include "particle/ZuParticleNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "node/face/ZuNodePerson.h"
#include "particle/ZuParticleEffect.h"
#include "person/ZuPerson.h"
#include "render/ZuRenderCamera.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

namespace {
// Particles go over the picture but under the face passes that follow.
const int kParticleStream = RS_FACE_MASK;
} // namespace

ZuParticleNode::ZuParticleNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuParticleNode");
    setRenderOrder(kParticleStream);
}

void ZuParticleNode::zuinit() {
    mesh = new ZuRenderMesh();
    mesh->setVertexType(static_cast<VFTYPE>(VF_POS2 | VF_COLOR0 | VF_TEX0));
    mesh->setDrawMethod(GL_TRIANGLES);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    material = new ZuMaterial(app, "NormalV2CT1");
    material->setDepthTest(false);
    applyBlend();
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
}

void ZuParticleNode::zudestroy() {
    delete effect;
    effect = nullptr;
    if (texture) texture->release();
    texture = nullptr;
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    triggers.clearAll();
    ZuNode::zudestroy();
}

void ZuParticleNode::setEffect(void* newEffect, const char* blend) {
    ZuParticleEffect* given = static_cast<ZuParticleEffect*>(newEffect);
    if (given != effect) delete effect;
    effect = given;
    if (blend) setBlendMode(blend);
    if (mesh) uploadVertices();
}

void ZuParticleNode::uploadVertices() {
    // An empty pool has no buffer to hand over: zero vertices draw nothing.
    if (effect && effect->getMaxDataLen() > 0) mesh->setVertexData(effect->getData(), effect->getMaxDataLen());
    mesh->setVertexNum(effect ? effect->getPtNum() : 0);
}

void ZuParticleNode::setBlendMode(const char* mode) {
    if (!mode) return;
    blendMode = mode;
    applyBlend();
}

void ZuParticleNode::applyBlend() {
    if (!material) return;
    if (blendMode == "add")
        material->setBlend(true, GL_SRC_ALPHA, GL_ONE);
    else if (blendMode == "normal")
        material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

void ZuParticleNode::setTexture(ZuTexture* newTexture) {
    qzAssignRetained(texture, newTexture);
}

void ZuParticleNode::update(float ms) {
    // Effects are authored in design pixels; the scene's adapt scale fits
    // them to the output. A camera never adapted has none: keep 1 then.
    ZuConfig* config = ZuGBase::configOf(app);
    Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    float scaleX = 1.0f, scaleY = 1.0f;
    if (camera && camera->adaptScale.x > 0.0f && camera->adaptScale.y > 0.0f) {
        scaleX = camera->adaptScale.x;
        scaleY = camera->adaptScale.y;
        setScaleX(scaleX, scaleY, 1.0f);
    }
    if (bindIndex >= 0) followLandmark(scaleX, scaleY);
    ZuNode::update(ms);
    ZuRenderObject* object = getRenderObject();
    if (!effect || !object || !mesh || !material) return;
    effect->update(ms * 0.001f);
    uploadVertices();
    material->setTexture0(texture);
    material->setModelMatrix(getAbsoluteMat().data());
    ZuGlobalParam* param = app->getGlobalParam();
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    material->setTexcoordFlip(1.0f, -1.0f);
    applyBlend();
    object->setMesh(mesh);
    object->setMaterial(material);
}

void ZuParticleNode::holdUntilTriggered() {
    if (effect) effect->setEmitting(false);
    listenEvent();
}

bool ZuParticleNode::procEvent(ZuEvent* event) {
    if (!event || !effect) return true;
    if (!effect->isEmitting() && triggers.isInStartEventListOfPackage(event, m_resUID)) effect->setEmitting(true);
    else if (effect->isEmitting() && triggers.isInStopEventList(event, m_resUID)) effect->setEmitting(false);
    return true;
}

void ZuParticleNode::bindToLandmark(int standardIndex, float x, float y) {
    bindIndex = standardIndex;
    anchorX = x;
    anchorY = y;
}

// The node's origin goes where the anchor, scaled like every particle, lands
// on the landmark (scene pixels, y up, as persons keep them).
void ZuParticleNode::followLandmark(float scaleX, float scaleY) {
    ZuPerson* person = ZuNodePerson::of(this);
    ZuDetectMgr* detectMgr = detectMgrOf(app);
    ZuDetectBase* detect = detectMgr ? detectMgr->getDetect() : nullptr;
    if (!person || !person->getExist() || !detect) return;
    int index = detect->transformIndex(bindIndex);
    if (index < 0 || index >= person->getFacePtNum()) index = 0;
    setPositionX(person->getFaceDataX(index) - anchorX * scaleX, person->getFaceDataY(index) - anchorY * scaleY, 0.0f);
}

void ZuParticleNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!object || !getActiveScene() || !isVisible()) return;
    object->pushCmd(getActiveRenderScene(), getRenderOrder(), "particle_render");
}
