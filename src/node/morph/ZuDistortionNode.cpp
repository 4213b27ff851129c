#include "node/morph/ZuDistortionNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuIntensityUpdateEnvet.h"
#include "node/face/ZuNodePerson.h"
#include "node/morph/ZuAotuMirror.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/object/ZuRenderObject.h"

#include <cmath>
#include <cstring>
#include <utility>

ZuDistortionNode::ZuDistortionNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuDistortionNode"); }

void ZuDistortionNode::zuinit() {
    ZuFilter::zuinit();  // listens to events
    material = makeMaterial();
    if (material) material->init();
}

void ZuDistortionNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuDistortionNode::setbindIndex(int index) {
    if (index < 0 || index > 40) {
        QZLOGW("%s '%s': landmark %d is no standard index (0..40); keeping %d", getType().c_str(),
               getname().c_str(), index, bindIndex);
        return;
    }
    bindIndex = index;
}

void ZuDistortionNode::setintensity(float value) {
    // A NaN would turn the whole lens area into undefined samples.
    if (std::isnan(value)) {
        QZLOGW("%s '%s': intensity is not a number; 0 used", getType().c_str(), getname().c_str());
        value = 0.0f;
    }
    intensity = value;
}

ZuPerson* ZuDistortionNode::presentPerson() const {
    ZuPerson* person = ZuNodePerson::of(this);
    return person && person->getExist() ? person : nullptr;
}

ZuDetectBase* ZuDistortionNode::detector() const {
    ZuGlobalMgr* mgr = app ? app->getGlobalMgr() : nullptr;
    ZuDetectMgr* detectMgr = mgr ? mgr->getDetectMgr() : nullptr;
    return detectMgr ? detectMgr->getDetect() : nullptr;
}

bool ZuDistortionNode::boundPoint(ZuPerson* person, ZuDetectBase* detect, float& x, float& y) {
    int i = detect->transformIndex(bindIndex);
    if (i < 0 || i >= person->getFacePtNum()) return false;
    x = person->getFaceDataX(i);
    y = person->getFaceDataY(i);
    region = detect->getIndexRegion(bindIndex);
    return std::isfinite(x) && std::isfinite(y);
}

// The lens works in camera pixels of the upright picture, as the landmarks do.
void ZuDistortionNode::readCameraSize() {
    ZuConfig* config = ZuGBase::configOf(app);
    const Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    if (!camera || camera->width <= 0 || camera->height <= 0) return;
    float width = static_cast<float>(camera->width), height = static_cast<float>(camera->height);
    if (camera->angle == 90 || camera->angle == 270) std::swap(width, height);
    cameraWidth = width;
    cameraHeight = height;
}

void ZuDistortionNode::update(float dt) {
    ZuFilter::update(dt);
    readCameraSize();
    placed = false;
    ZuPerson* person = presentPerson();
    ZuDetectBase* detect = detector();
    if (person && detect && material) {
        placeLens(person, detect);
        placed = true;
    }
    if (!material || !getRenderObject()) return;
    material->setSamplerStep(1.0f / cameraWidth, 1.0f / cameraHeight);
    material->setIntensity(intensity);
    bindPicture(material);
}

void ZuDistortionNode::render() {
    if (!isVisible()) return;
    if (!placed || !material || !material->getProgram()) return;
    pushPass(RS_FILTER, "ZuDistortionNode swap", "ZuDistortionNode render");
}

bool ZuDistortionNode::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_INTENSITY_UPDATE && event->resUID == getresUID() &&
        std::strncmp(getname().c_str(), event->sceneName.c_str(), event->sceneName.size()) == 0)
        setintensity(static_cast<ZuIntensityUpdateEnvet*>(event)->value);
    ZuFilter::procEvent(event);
    return true;
}
