#include "node/beauty/ZuBeautyNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuIntensityUpdateEnvet.h"
#include "event/ZuSlimStrengthEvent.h"
#include "node/beauty/ZuBeautyMaterial.h"
#include "node/face/ZuNodePerson.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonTracker.h"
#include "platform/ZuLog.h"
#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// Keeps a slim factor off 1, where the warp's direction would be zero.
float awayFromOne(float value) { return std::fabs(value - 1.0f) <= 0.001f ? 1.001f : value; }

// Host strengths live in 0..1: beyond that the eye power turns the eyes
// inside out and a slim factor flips the face through the nose. A value out
// of range is a host bug, so it is logged; NaN becomes the neutral value.
// Slim factors may sit just above 1, where awayFromOne puts them anyway.
float clampStrength(const ZuNode* node, const char* what, float value, float neutral, float upper = 1.0f) {
    if (value >= 0.0f && value <= upper) return value;
    float clamped = std::isnan(value) ? neutral : (value < 0.0f ? 0.0f : 1.0f);
    QZLOGW("ZuBeautyNode '%s': %s %g outside 0..1, clamped to %g", node->getname().c_str(), what, value, clamped);
    return clamped;
}

const float kGetterFallback = 1.0f;

} // namespace

ZuBeautyNode::ZuBeautyNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuBeautyNode"); }

void ZuBeautyNode::zuinit() {
    ZuFilter::zuinit();
    material = new ZuBeautyMaterial(app);
    material->init();
    grid = ZuRenderData::createRectMesh(1.0f, 1.0f, 36, 64);
}

void ZuBeautyNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
    qzSafeRelease(grid);
}

// Twelve tracker positions as texture coordinates of the picture: camera
// pixels over the camera size, turned for a camera on its side.
void ZuBeautyNode::updateLocations() {
    ZuPerson* person = ZuNodePerson::of(this);
    ZuPersonTracker* tracker = person ? person->getTracker() : nullptr;
    if (!tracker) return;
    float width = tracker->cameraWidth, height = tracker->cameraHeight;
    ZuConfig* config = app->getGlobalMgr()->getConfig();
    const Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    if (camera) {
        width = static_cast<float>(camera->width);
        height = static_cast<float>(camera->height);
        if (camera->angle == 90 || camera->angle == 270) std::swap(width, height);
    }
    if (width <= 0.0f || height <= 0.0f) return;
    const ZuVec3* c = tracker->contourPoints;
    const ZuVec3* points[ZuBeautyMaterial::kUsed] = {
        &c[0], &tracker->chin, &c[1], &tracker->noseTip, &tracker->leftEye, &tracker->rightEye,
        &c[ZuPersonTracker::kContourCount], &c[ZuPersonTracker::kContourCount + 1], &c[6], &c[7], &c[8], &c[9]};
    for (int i = 0; i < ZuBeautyMaterial::kUsed; ++i)
        material->setLocation(i, points[i]->x / width, points[i]->y / height);
}

void ZuBeautyNode::update(float dt) {
    if (!active || !material) return;
    ZuFilter::update(dt);
    ZuPerson* person = ZuNodePerson::of(this);
    if (person && person->getExistState() == 1) updateLocations();
    bindPicture(material);
    if (getRenderObject() && grid) getRenderObject()->setMesh(grid);
}

void ZuBeautyNode::render() {
    if (!isVisible()) return;
    if (!active || !material || !material->getProgram() || !grid) return;
    ZuPerson* person = ZuNodePerson::of(this);
    if (!person || person->getExistState() != 1 || !person->getTracker()) return;
    pushPass(RS_FILTER, "Beauty swap", "Beauty");
}

bool ZuBeautyNode::procEvent(ZuEvent* event) {
    bool ours = event && event->resUID == getresUID() &&
                std::strncmp(getname().c_str(), event->sceneName.c_str(), event->sceneName.size()) == 0;
    bool kind = event && (event->type == ZU_EVENT_INTENSITY_UPDATE || event->type == ZU_EVENT_SLIM_STRENGTH);
    if (!ours || !kind || !material) return ZuFilter::procEvent(event);
    // Judged on the values the node held when the event came.
    active = !(material->faceSlim == 0.0f && material->chinSlim == 0.0f && material->chinUpSlim == 0.0f &&
               material->chinMiddleSlim == 0.0f && material->eyeLarge[0] == 0.0f);
    if (event->type == ZU_EVENT_INTENSITY_UPDATE) {
        float value = static_cast<ZuIntensityUpdateEnvet*>(event)->value;
        setEyeLarge(value, value);
    } else {
        // The operation that pushes it fills v0..v3 with the four factors.
        auto* slim = static_cast<ZuSlimStrengthEvent*>(event);
        setFaceSlim(slim->v0);
        setChinUpSlim(slim->v2);
        setChinMiddleSlim(slim->v3);
        setChinSlim(slim->v1);
    }
    return ZuFilter::procEvent(event);
}

void ZuBeautyNode::setEyeLarge(float left, float right) {
    if (!material) return;
    material->eyeLarge[0] = clampStrength(this, "eye strength", left, 0.0f);
    material->eyeLarge[1] = clampStrength(this, "eye strength", right, 0.0f);
}

void ZuBeautyNode::setFaceSlim(float value) {
    if (material) material->faceSlim = awayFromOne(clampStrength(this, "face slim", value, 1.0f, 1.001f));
}
void ZuBeautyNode::setChinSlim(float value) {
    if (material) material->chinSlim = awayFromOne(clampStrength(this, "chin slim", value, 1.0f, 1.001f));
}
void ZuBeautyNode::setChinUpSlim(float value) {
    if (material) material->chinUpSlim = awayFromOne(clampStrength(this, "upper chin slim", value, 1.0f, 1.001f));
}
void ZuBeautyNode::setChinMiddleSlim(float value) {
    if (material) material->chinMiddleSlim = awayFromOne(clampStrength(this, "middle chin slim", value, 1.0f, 1.001f));
}

float ZuBeautyNode::getEyeLargeLeft() const { return material ? material->eyeLarge[0] : 0.0f; }
float ZuBeautyNode::getEyeLargeRight() const { return material ? material->eyeLarge[1] : 0.0f; }
float ZuBeautyNode::getFaceSlim() const { return material ? material->faceSlim : kGetterFallback; }
float ZuBeautyNode::getChinSlim() const { return material ? material->chinSlim : kGetterFallback; }
float ZuBeautyNode::getChinUpSlim() const { return material ? material->chinUpSlim : kGetterFallback; }
float ZuBeautyNode::getChinMiddleSlim() const { return material ? material->chinMiddleSlim : kGetterFallback; }
