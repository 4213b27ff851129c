#include "scene/Zu3DBox.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalParam.h"
#include "basesys/ZuRandom.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialColorSelect3d.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderCamera.h"

#include <GLES2/gl2.h>
#include <cstring>

namespace {

// Two triangles per face, corners numbered by bits: x (1), y (2), z (4).
const unsigned short kIndices[36] = {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                                     2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5};

struct BoxVertex {
    float x, y, z;
    unsigned char rgba[4];
};
static_assert(sizeof(BoxVertex) == 16, "three floats and four colour bytes");

unsigned char toByte(float v) { return static_cast<unsigned char>(static_cast<int>(v * 255.0f)); }

} // namespace

Zu3DBox::Zu3DBox(ZuAppMain* app) : ZuNode(app) { setType("Zu3DBox"); }

Zu3DBox::~Zu3DBox() { releaseOwned(); }

void Zu3DBox::zuinit() {
    ZuNode::zuinit();
    setCanSelect(true);
    box.reset();
    box.addPoint(ZuVec3(-10.0f, -10.0f, -10.0f));
    box.addPoint(ZuVec3(10.0f, 10.0f, 10.0f));
    ZuRandom& random = app->getRandom();
    // One draw per statement: argument order is unspecified, and a seeded
    // run must give the same box everywhere.
    float draws[6];
    for (int i = 0; i < 3; ++i) draws[i] = random.rangeFloatGrain(0.0f, 360.0f);
    // Light enough to tell from a dark background.
    for (int i = 3; i < 6; ++i) draws[i] = random.rangeFloatGrain(0.3f, 1.0f);
    setRotationX(draws[0], draws[1], draws[2]);
    color.set(draws[3], draws[4], draws[5], 1.0f);
    setPositionX(360.0f, 640.0f, 0.0f);
    setScaleX(5.0f, 5.0f, 5.0f);

    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS3 | VF_COLOR0);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setDrawMethod(GL_TRIANGLES);
    mesh->setIndexData(kIndices, sizeof(kIndices), 36);
    material = new ZuMaterial(app, "geometry3d");
    material->setDepthTest(true);
    material->setBlendEnable(false);
    selectMaterial = new ZuMaterialColorSelect3d(app);
    selectMaterial->init();
    selectMaterial->setDepthTest(true);

    ZuRenderObject* object = new ZuRenderObject(app);
    object->setMesh(mesh);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
    ZuRenderObject* pick = new ZuRenderObject(app);
    pick->setMesh(mesh);
    pick->setMaterial(selectMaterial);
    setSelectRenderObject(pick);
    pick->release();
}

void Zu3DBox::zudestroy() {
    releaseOwned();
    ZuNode::zudestroy();
}

void Zu3DBox::releaseOwned() {
    qzSafeRelease(mesh);
    qzSafeRelease(material);
    qzSafeRelease(selectMaterial);
}

void Zu3DBox::update(float dt) {
    ZuNode::update(dt);
    if (!mesh || !material || !selectMaterial) return;
    BoxVertex corners[8];
    for (int i = 0; i < 8; ++i) {
        corners[i].x = (i & 1) ? box.maximum.x : box.minimum.x;
        corners[i].y = (i & 2) ? box.maximum.y : box.minimum.y;
        corners[i].z = (i & 4) ? box.maximum.z : box.minimum.z;
        corners[i].rgba[0] = toByte(color.r);
        corners[i].rgba[1] = toByte(color.g);
        corners[i].rgba[2] = toByte(color.b);
        corners[i].rgba[3] = toByte(color.a);
    }
    mesh->setVertexData(corners, sizeof(corners));
    mesh->setVertexNum(8);
    ZuGlobalParam* param = app->getGlobalParam();
    const float* vp = param && param->activeCamera ? param->activeCamera->getVPMat() : nullptr;
    for (ZuMaterial* m : {material, static_cast<ZuMaterial*>(selectMaterial)}) {
        m->setModelMatrix(getAbsoluteMat().m);
        if (vp) m->setVPMatrix(vp);
    }
    selectMaterial->setColor(static_cast<unsigned>(getuid()));
}

void Zu3DBox::render() {
    if (!isVisible() || !getRenderObject()) return;
    ZuRenderScene* renderScene = getActiveRenderScene();
    if (!renderScene) return;
    if (getCanSelect() && m_selectRenderObject) m_selectRenderObject->pushCmd(renderScene, 3, "select_3dbox");
    getRenderObject()->pushCmd(renderScene, 21, "3dbox");
}
