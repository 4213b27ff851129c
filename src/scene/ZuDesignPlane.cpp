#include "scene/ZuDesignPlane.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalParam.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/ZuRenderCamera.h"

#include <GLES2/gl2.h>

namespace {
const unsigned short kIndices[6] = {0, 1, 2, 1, 2, 3};
struct DesignVertex {
    float x, y;
    unsigned char rgba[4];
    float u, v;
};
static_assert(sizeof(DesignVertex) == 20, "two floats, four colour bytes, two floats");
} // namespace

ZuDesignPlane::ZuDesignPlane(ZuAppMain* app) : ZuNode(app) { setType("ZuDesignPlane"); }

ZuDesignPlane::~ZuDesignPlane() { releaseOwned(); }

void ZuDesignPlane::zuinit() {
    ZuNode::zuinit();
    material = new ZuMaterial(app, "NormalV2CT1");
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setDrawMethod(GL_TRIANGLES);
    mesh->setIndexData(kIndices, sizeof(kIndices), 6);
    ZuConfig* cfg = config();
    const float w = cfg ? static_cast<float>(cfg->getDesignImageWidth()) : 720.0f;
    const float h = cfg ? static_cast<float>(cfg->getDesignImageHeight()) : 1280.0f;
    const DesignVertex vertices[4] = {{0.0f, 0.0f, {255, 255, 255, 255}, 0.0f, 1.0f},
                                      {w, 0.0f, {255, 255, 255, 255}, 1.0f, 1.0f},
                                      {0.0f, h, {255, 255, 255, 255}, 0.0f, 0.0f},
                                      {w, h, {255, 255, 255, 255}, 1.0f, 0.0f}};
    mesh->setVertexData(vertices, sizeof(vertices));
    mesh->setVertexNum(4);
    ZuRenderObject* object = new ZuRenderObject(app);
    object->setMesh(mesh);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
}

void ZuDesignPlane::zudestroy() {
    releaseOwned();
    ZuNode::zudestroy();
}

void ZuDesignPlane::releaseOwned() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
}

void ZuDesignPlane::update(float dt) {
    ZuNode::update(dt);
    if (!material) return;
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app->getGlobalParam();
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    material->setTexcoordFlip(1.0f, -1.0f);
    ZuTexMgr* textures = texMgr();
    ZuTexture* picture = textures ? textures->getTexture(kPicture, false, false) : nullptr;
    if (picture) material->setTexture0(picture);
}

void ZuDesignPlane::render() {
    if (!isVisible() || !getRenderObject()) return;
    getRenderObject()->pushCmd(getActiveRenderScene(), 29, "zudesignplane");
}
