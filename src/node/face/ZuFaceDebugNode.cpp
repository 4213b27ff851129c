#include "node/face/ZuFaceDebugNode.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/ZuRenderCamera.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <utility>

ZuFaceDebugNode::ZuFaceDebugNode(ZuAppMain* app, unsigned drawMethod) : ZuNode(app), drawMethod(drawMethod) {
    setRenderOrder(RS_OVERLAY);
}

void ZuFaceDebugNode::zuinit() {
    material = new ZuMaterial(app, "debugFacePt");
    material->setBlendEnable(false);
    material->setDepthTest(false);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setDrawMethod(drawMethod);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
}

void ZuFaceDebugNode::zudestroy() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

bool ZuFaceDebugNode::landmarkFrame(float* width, float* height) const {
    ZuConfig* config = ZuGBase::configOf(app);
    if (!config) return false;
    Camera* camera = config->getCamera(getSceneName().c_str());
    if (!camera) return false;
    float w = static_cast<float>(camera->width);
    float h = static_cast<float>(camera->height);
    // FP records are converted in the scene's window size instead.
    ZuScene* scene = getScene();
    if (config->getDetectType() == DETECTTYPE_FP && scene) {
        w = static_cast<float>(scene->getWinWidth());
        h = static_cast<float>(scene->getWinHeight());
    }
    // A quarter turn exchanges the axes of the converted points.
    if (camera->angle == 90 || camera->angle == 270) std::swap(w, h);
    *width = w;
    *height = h;
    return w > 0.0f && h > 0.0f;
}

void ZuFaceDebugNode::setVertices(const float* xy, int vertices) {
    vertexCount = 0;
    ZuRenderObject* object = getRenderObject();
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    ZuRenderCamera* camera = param ? param->activeCamera : nullptr;
    float frameW = 0.0f, frameH = 0.0f;
    if (vertices <= 0 || !object || !material || !mesh || !camera || !landmarkFrame(&frameW, &frameH)) return;
    mesh->setVertexData(xy, vertices * 2 * static_cast<int>(sizeof(float)));
    mesh->setVertexNum(vertices);
    vertexCount = vertices;

    // Landmarks are frame pixels with y up; the scene camera shows its
    // design plane, so scale the one onto the other.
    float model[16] = {};
    model[0] = camera->getWidth() / frameW;
    model[5] = camera->getHeight() / frameH;
    model[10] = 1.0f;
    model[15] = 1.0f;
    material->setModelMatrix(model);
    material->setVPMatrix(camera->getVPMat());
    object->setMesh(mesh);
    object->setMaterial(material);
}

void ZuFaceDebugNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!object || vertexCount == 0 || !isVisible()) return;
    object->pushCmd(getActiveRenderScene(), getRenderOrder(), commandLabel());
}
