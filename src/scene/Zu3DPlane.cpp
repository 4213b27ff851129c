#include "scene/Zu3DPlane.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalParam.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderCamera.h"

#include <GLES2/gl2.h>

namespace {
const unsigned short kIndices[6] = {0, 1, 2, 1, 2, 3};
struct PlaneVertex {
    float x, y, z;
    unsigned char rgba[4];
};
static_assert(sizeof(PlaneVertex) == 16, "three floats and four colour bytes");
} // namespace

Zu3DPlane::Zu3DPlane(ZuAppMain* app) : ZuNode(app) { setType("Zu3DPlane"); }

Zu3DPlane::~Zu3DPlane() { releaseOwned(); }

void Zu3DPlane::zuinit() {
    ZuNode::zuinit();
    material = new ZuMaterial(app, "geometry3d");
    material->setBlendEnable(false);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS3 | VF_COLOR0);
    mesh->setVertexPoolType(GL_STATIC_DRAW);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setDrawMethod(GL_TRIANGLES);
    mesh->setIndexData(kIndices, sizeof(kIndices), 6);
    setColor(255, 255, 255, 255);
    ZuRenderObject* object = new ZuRenderObject(app);
    object->setMesh(mesh);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
}

void Zu3DPlane::zudestroy() {
    releaseOwned();
    ZuNode::zudestroy();
}

void Zu3DPlane::releaseOwned() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
}

void Zu3DPlane::setColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a) {
    if (!mesh) return;
    const float corners[4][2] = {{-0.5f, -0.5f}, {0.5f, -0.5f}, {-0.5f, 0.5f}, {0.5f, 0.5f}};
    PlaneVertex vertices[4];
    for (int i = 0; i < 4; ++i) vertices[i] = {corners[i][0], corners[i][1], 0.0f, {r, g, b, a}};
    mesh->setVertexData(vertices, sizeof(vertices));
    mesh->setVertexNum(4);
}

void Zu3DPlane::update(float dt) {
    ZuNode::update(dt);
    if (!material) return;
    material->update(dt);
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app->getGlobalParam();
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
}

void Zu3DPlane::render() {
    if (!isVisible() || !getRenderObject()) return;
    getRenderObject()->pushCmd(getActiveRenderScene(), 29, "zu3dplane");
}
