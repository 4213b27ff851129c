#include "logicsys/Animate2D/ZuTexAniNode.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuTextureEvent.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuTexAniMaterial.h"
#include "render/math/ZuMat4.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

namespace {

const uint16_t kQuadIndices[6] = {0, 1, 2, 2, 1, 3};

struct Vertex {
    float x, y;
    uint8_t r, g, b, a;
    float u, v;
};
static_assert(sizeof(Vertex) == 20, "vertex must match format 0x1101");

} // namespace

ZuTexAniNode::ZuTexAniNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuTexAniNode");
    setRenderOrder(RS_OVERLAY);
}

void ZuTexAniNode::zuinit() {
    listenEvent();
    setCanProcEvent(true);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuTexAniMaterial(app);
    material->init();
    material->setDepthTest(false);
    // The quad is already in clip space.
    ZuMat4 identity;
    identity.identity();
    material->setModelMatrix(identity.m);
    material->setVPMatrix(identity.m);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexPoolType(GL_STATIC_DRAW);
    mesh->setIndexData(kQuadIndices, sizeof kQuadIndices, 6);
}

void ZuTexAniNode::zudestroy() {
    unlistenEvent();
    qzSafeRelease(texture);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuTexAniNode::setTexture(ZuTexture* newTexture) {
    if (newTexture == texture) return;
    qzAssignRetained(texture, newTexture);
    _initRender();
    setSpeed(speed);
}

void ZuTexAniNode::setSpeed(float pixelsPerSecond) {
    speed = pixelsPerSecond;
    const float width = texture ? static_cast<float>(texture->getwidth()) : 0.0f;
    if (material && width > 0.0f) material->setDegreeAndSpeed(0.0f, pixelsPerSecond / width);
}

bool ZuTexAniNode::procEvent(ZuEvent* event) {
    auto* loaded = dynamic_cast<ZuTextureEvent*>(event);
    if (loaded && texture && loaded->textureUid == texture->getuid()) {
        _initRender();
        setSpeed(speed);
    }
    return true;
}

void ZuTexAniNode::_initRender() {
    if (!mesh || !texture || !texture->getbLoad()) return;
    ZuConfig* config = ZuGBase::configOf(app);
    const float designW = config ? static_cast<float>(config->getDesignWidth()) : 720.0f;
    const float designH = config ? static_cast<float>(config->getDesignHeight()) : 1280.0f;
    if (!(designW > 0.0f) || !(designH > 0.0f) || texture->getwidth() <= 0 || texture->getheight() <= 0) return;
    const float rx = static_cast<float>(texture->getwidth()) / designW;
    const float ry = static_cast<float>(texture->getheight()) / designH;
    Vertex quad[4] = {{-1, -1, 255, 255, 255, 255, 0, 1},
                      {1, -1, 255, 255, 255, 255, 1, 1},
                      {-1, 1, 255, 255, 255, 255, 0, 0},
                      {1, 1, 255, 255, 255, 255, 1, 0}};
    if (rx < 1.0f) quad[1].x = quad[3].x = 2.0f * rx - 1.0f;
    else quad[1].u = quad[3].u = 1.0f / rx;
    if (ry < 1.0f) quad[2].y = quad[3].y = 2.0f * ry - 1.0f;
    else quad[0].v = quad[1].v = 1.0f / ry;
    mesh->setVertexNum(4);
    mesh->setVertexData(quad, sizeof quad);
}

void ZuTexAniNode::update(float delta) {
    ZuNode::update(delta);
    ZuRenderObject* object = getRenderObject();
    if (!material || !texture || !object) return;
    material->setTexture0(texture);
    material->update(delta);
    object->setMaterial(material);
    object->setMesh(mesh);
}

void ZuTexAniNode::render() {
    ZuRenderObject* object = getRenderObject();
    ZuRenderScene* scene = getActiveRenderScene();
    if (!object || !scene || !texture || !isVisible() || mesh->getVertexNum() == 0) return;
    object->pushCmd(scene, RS_OVERLAY, "AniTex2d");
}
