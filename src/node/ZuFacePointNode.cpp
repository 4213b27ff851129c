#include "node/ZuFacePointNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "platform/ZuLog.h"
#include "render/RENDERSTREAMTYPE.h"
#include "render/ZuMaterial.h"
#include "render/ZuRenderCamera.h"
#include "render/ZuRenderMesh.h"
#include "render/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <cmath>
#include <vector>

ZuFacePointNode::ZuFacePointNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuFacePointNode");
    setRenderOrder(RS_OVERLAY);
}

void ZuFacePointNode::zuinit() {
    material = new ZuMaterial(app, "debugFacePt");
    material->setBlendEnable(false);
    material->setDepthTest(false);
    material->setPointSize(pointSize);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setDrawMethod(GL_POINTS);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
}

void ZuFacePointNode::zudestroy() {
    if (material) material->destroy();
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuFacePointNode::setPointSize(float pixels) {
    if (!(pixels >= 1.0f && pixels <= 64.0f)) {
        QZLOGW("face point node %s: point size %g refused (1 to 64)", m_name.c_str(), pixels);
        return;
    }
    pointSize = pixels;
    if (material) material->setPointSize(pixels);
}

bool ZuFacePointNode::landmarkFrame(float* width, float* height) const {
    ZuConfig* config = app && app->getGlobalMgr() ? app->getGlobalMgr()->getConfig() : nullptr;
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

int ZuFacePointNode::collectPoints(float* positions, int capacity) const {
    ZuPersonSys* persons = app && app->getGlobalMgr() ? app->getGlobalMgr()->getPersonSys() : nullptr;
    if (!persons) return 0;
    int count = 0;
    for (int id = 1; id <= ZuPersonSys::kPersonsPerScene; ++id) {
        ZuPerson* person = persons->getPerson(getSceneName().c_str(), id);
        // Only faces of the latest record: a person merely kept present
        // holds old landmarks.
        if (!person || person->getExistState() != 1) continue;
        const float* face = person->getFaceData();
        const int n = person->getFacePtNum();
        for (int i = 0; i < n && count < capacity; ++i, ++count) {
            positions[2 * count] = face[2 * i];
            positions[2 * count + 1] = face[2 * i + 1];
        }
    }
    return count;
}

void ZuFacePointNode::update(float dt) {
    ZuNode::update(dt);
    drawnPoints = 0;
    ZuRenderObject* object = getRenderObject();
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    ZuRenderCamera* camera = param ? param->activeCamera : nullptr;
    float frameW = 0.0f, frameH = 0.0f;
    if (!object || !material || !mesh || !camera || !landmarkFrame(&frameW, &frameH)) return;

    const int capacity = ZuPersonSys::kPersonsPerScene * ZuPerson::kMaxFaceValues;
    std::vector<float> positions(static_cast<size_t>(capacity) * 2);
    drawnPoints = collectPoints(positions.data(), capacity);
    if (drawnPoints == 0) return;
    mesh->setVertexData(positions.data(), drawnPoints * 2 * static_cast<int>(sizeof(float)));
    mesh->setVertexNum(drawnPoints);

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

void ZuFacePointNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!object || drawnPoints == 0 || !isVisible()) return;
    object->pushCmd(getActiveRenderScene(), getRenderOrder(), "facept");
}
