#include "node/ZuFaceDebugLineNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "render/RENDERSTREAMTYPE.h"
#include "render/ZuMaterial.h"
#include "render/ZuRenderCamera.h"
#include "render/ZuRenderMesh.h"
#include "render/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <cmath>
#include <utility>

ZuFaceDebugLineNode::ZuFaceDebugLineNode(ZuAppMain* app) : ZuNode(app) { setRenderOrder(RS_OVERLAY); }

void ZuFaceDebugLineNode::zuinit() {
    material = new ZuMaterial(app, "debugFacePt");
    material->setBlendEnable(false);
    material->setDepthTest(false);
    // Thin lines show exactly where the values lie.
    material->setLineWidth(1.0f);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setDrawMethod(GL_LINES);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
}

void ZuFaceDebugLineNode::zudestroy() {
    if (material) material->destroy();
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

bool ZuFaceDebugLineNode::landmarkFrame(float* width, float* height) const {
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

void ZuFaceDebugLineNode::update(float dt) {
    ZuNode::update(dt);
    drawnSegments = 0;
    ZuRenderObject* object = getRenderObject();
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    ZuRenderCamera* camera = param ? param->activeCamera : nullptr;
    ZuPersonSys* persons = app && app->getGlobalMgr() ? app->getGlobalMgr()->getPersonSys() : nullptr;
    float frameW = 0.0f, frameH = 0.0f;
    if (!object || !material || !mesh || !camera || !persons || !landmarkFrame(&frameW, &frameH)) return;

    float lines[ZuPersonSys::kPersonsPerScene * kMaxSegmentsPerFace * 4];
    for (int id = 1; id <= ZuPersonSys::kPersonsPerScene; ++id) {
        const ZuPerson* person = persons->getPerson(getSceneName().c_str(), id);
        // Only faces of the latest record: a person merely kept present
        // holds old data.
        if (!person || person->getExistState() != 1) continue;
        float* out = lines + drawnSegments * 4;
        const int n = faceSegments(person, out);
        bool finite = true;
        for (int k = 0; k < n * 4; ++k) finite = finite && std::isfinite(out[k]);
        if (n > 0 && n <= kMaxSegmentsPerFace && finite) drawnSegments += n;
    }
    if (drawnSegments == 0) return;
    mesh->setVertexData(lines, drawnSegments * 4 * static_cast<int>(sizeof(float)));
    mesh->setVertexNum(drawnSegments * 2);

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

void ZuFaceDebugLineNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!object || drawnSegments == 0 || !isVisible()) return;
    object->pushCmd(getActiveRenderScene(), getRenderOrder(), commandLabel());
}
