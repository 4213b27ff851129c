#include "logicsys/Animate2D/ZuSpriteNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalParam.h"
#include "render/ZuRenderCamera.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

namespace {
const uint16_t kSpriteIndices[6] = {0, 1, 2, 1, 2, 3};
}

ZuSpriteNode::ZuSpriteNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuSpriteNode");
    setRenderOrder(RS_SPRITE);
}

void ZuSpriteNode::zuinit() {
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "normal2d");
    material->setDepthTest(false);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_TEX0);
    mesh->setVertexPoolType(GL_STATIC_DRAW);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setIndexData(kSpriteIndices, sizeof kSpriteIndices, 6);
    setSpriteSize(width, height);
}

void ZuSpriteNode::zudestroy() {
    qzSafeRelease(texture);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuSpriteNode::setSpriteSize(float w, float h) {
    width = w;
    height = h;
    if (!mesh) return;
    const float x = w / 2.0f, y = h / 2.0f;
    // Bottom left, bottom right, top left, top right; images are stored top row first.
    const float vertices[16] = {-x, -y, 0.0f, 1.0f, x, -y, 1.0f, 1.0f, -x, y, 0.0f, 0.0f, x, y, 1.0f, 0.0f};
    mesh->setVertexNum(4);
    mesh->setVertexData(vertices, sizeof vertices);
}

void ZuSpriteNode::setSpriteTexture(ZuTexture* newTexture) {
    qzAssignRetained(texture, newTexture);
}

void ZuSpriteNode::update(float delta) {
    ZuNode::update(delta);
    ZuRenderObject* object = getRenderObject();
    if (!material || !texture || !object) return;
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    material->setTexcoordFlip(1.0f, -1.0f);
    // Premultiplied pictures, as every 2D layer of the games.
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setTexture0(texture);
    object->setMaterial(material);
    object->setMesh(mesh);
}

void ZuSpriteNode::render() {
    ZuRenderObject* object = getRenderObject();
    ZuRenderScene* scene = getActiveRenderScene();
    if (!object || !scene || !texture || !material || !isVisible()) return;
    object->pushCmd(scene, RS_SPRITE, "ZuSpriteNode");
}
