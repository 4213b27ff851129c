#include "scene/ZuDrawBoundingBoxNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalParam.h"
#include "event/ZuBoundingBoxEvent.h"
#include "event/ZuEvent.h"
#include "platform/ZuLog.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderCamera.h"

#include <GLES2/gl2.h>
#include <cmath>

namespace {
// A line loop through the indices: top, right, bottom and left sides.
const unsigned short kIndices[6] = {0, 1, 2, 1, 2, 3};
} // namespace

ZuDrawBoundingBoxNode::ZuDrawBoundingBoxNode(ZuAppMain* app) : ZuNode(app) { setType("ZuDrawBoundingBoxNode"); }

ZuDrawBoundingBoxNode::~ZuDrawBoundingBoxNode() { releaseOwned(); }

void ZuDrawBoundingBoxNode::zuinit() {
    ZuNode::zuinit();
    listenEvent();
    material = new ZuMaterial(app, "debugFacePt");
    material->setBlendEnable(false);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    mesh->setDrawMethod(GL_LINE_LOOP);
    mesh->setIndexData(kIndices, sizeof(kIndices), 6);
    setCorners(117.0f, 449.0f, 720.0f, 600.0f);
    ZuRenderObject* object = new ZuRenderObject(app);
    object->setMesh(mesh);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
}

void ZuDrawBoundingBoxNode::zudestroy() {
    unlistenEvent();
    releaseOwned();
    ZuNode::zudestroy();
}

void ZuDrawBoundingBoxNode::releaseOwned() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
}

void ZuDrawBoundingBoxNode::setCorners(float left, float top, float right, float bottom) {
    const float next[8] = {left, top, right, top, right, bottom, left, bottom};
    for (int i = 0; i < 8; ++i) corners[i] = next[i];
    if (mesh) {
        mesh->setVertexData(corners, sizeof(corners));
        mesh->setVertexNum(4);
    }
}

bool ZuDrawBoundingBoxNode::procEvent(ZuEvent* event) {
    if (!event || event->type != ZU_EVENT_BOUNDING_BOX) return true;
    auto* box = static_cast<ZuBoundingBoxEvent*>(event);
    if (!std::isfinite(box->left) || !std::isfinite(box->top) || !std::isfinite(box->right) ||
        !std::isfinite(box->bottom)) {
        QZLOGW("bounding box %g %g %g %g refused: not a number", box->left, box->top, box->right, box->bottom);
        return true;
    }
    setCorners(box->left, box->top, box->right, box->bottom);
    return true;
}

void ZuDrawBoundingBoxNode::update(float dt) {
    ZuNode::update(dt);
    if (!material) return;
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app->getGlobalParam();
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
}

void ZuDrawBoundingBoxNode::render() {
    if (!isVisible() || !getRenderObject()) return;
    getRenderObject()->pushCmd(getActiveRenderScene(), 21, "debug ZuDrawBoundingBoxNote");
}
