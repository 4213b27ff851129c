#include "node/mask/ZuCoverMaskNode.h"

#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

namespace {

struct Vertex {
    float x, y;
    uint8_t r, g, b, a;
    float u, v;
};

const uint16_t kIndices[6] = {0, 1, 2, 2, 3, 1};

} // namespace

ZuCoverMaskNode::ZuCoverMaskNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuCoverMaskNode");
    setRenderOrder(16);
}

void ZuCoverMaskNode::zuinit() {
    ZuNode::zuinit();
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "screennor");
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setDepthTest(false);
    // Image rows run top down; the quad's v runs bottom up.
    material->setTexcoordFlip(1.0f, -1.0f);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexNum(4);
    mesh->setVertexPoolType(GL_STATIC_DRAW);
    Vertex vertices[4];
    for (int i = 0; i < 4; ++i) {
        vertices[i].x = (i & 1) ? 1.0f : -1.0f;
        vertices[i].y = i < 2 ? -1.0f : 1.0f;
        vertices[i].r = vertices[i].g = vertices[i].b = vertices[i].a = 255;
        vertices[i].u = (i & 1) ? 1.0f : 0.0f;
        vertices[i].v = i < 2 ? 0.0f : 1.0f;
    }
    mesh->setVertexData(vertices, sizeof vertices);
    mesh->setIndexData(kIndices, sizeof kIndices, 6);
}

void ZuCoverMaskNode::zudestroy() {
    qzSafeRelease(maskTexture);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuCoverMaskNode::setMaskTexture(ZuTexture* texture) { qzAssignRetained(maskTexture, texture); }

void ZuCoverMaskNode::update(float delta) {
    ZuNode::update(delta);
    if (!material) return;
    material->setTexture0(maskTexture);
    if (ZuRenderObject* object = getRenderObject()) {
        object->setMesh(mesh);
        object->setMaterial(material);
    }
}

void ZuCoverMaskNode::render() {
    ZuRenderScene* scene = getActiveRenderScene();
    ZuRenderObject* object = getRenderObject();
    if (!isVisible() || !scene || !object || !maskTexture) return;
    object->pushCmd(scene, 16, "coverMask");
}
