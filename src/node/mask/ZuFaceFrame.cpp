#include "node/mask/ZuFaceFrame.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "render/ZuRenderCamera.h"
#include "scene/ZuNode.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

#include <utility>

bool ZuFaceFrame::size(const ZuNode* node, float* width, float* height) {
    ZuConfig* config = node ? ZuGBase::configOf(node->getApp()) : nullptr;
    Camera* camera = config ? config->getCamera(node->getSceneName().c_str()) : nullptr;
    if (!camera) return false;
    float w = static_cast<float>(camera->width), h = static_cast<float>(camera->height);
    ZuSceneMgr* scenes = ZuGBase::sceneMgrOf(node->getApp());
    ZuScene* scene = scenes ? scenes->getScene(node->getSceneName().c_str()) : nullptr;
    if (config->getDetectType() == DETECTTYPE_FP && scene) {
        w = static_cast<float>(scene->getWinWidth());
        h = static_cast<float>(scene->getWinHeight());
    }
    if (camera->angle == 90 || camera->angle == 270) std::swap(w, h);
    *width = w;
    *height = h;
    return w > 0.0f && h > 0.0f;
}

void ZuFaceFrame::modelMatrix(const ZuRenderCamera* camera, float frameW, float frameH, float out[16]) {
    for (int i = 0; i < 16; ++i) out[i] = (i % 5 == 0) ? 1.0f : 0.0f;
    if (!camera || frameW <= 0.0f || frameH <= 0.0f) return;
    out[0] = camera->getWidth() / frameW;
    out[5] = camera->getHeight() / frameH;
}

ZuRenderCamera* ZuFaceFrame::camera(ZuAppMain* app) {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    return param ? param->activeCamera : nullptr;
}

void ZuFaceFrame::toCamera(float x, float y, float w, float h, int angle, float* u, float* v) {
    const float a = x / w, b = y / h;
    switch (angle) {
    case 90: *u = b, *v = 1.0f - a; break;
    case 180: *u = 1.0f - a, *v = 1.0f - b; break;
    case 270: *u = 1.0f - b, *v = a; break;
    default: *u = a, *v = b; break;
    }
}
