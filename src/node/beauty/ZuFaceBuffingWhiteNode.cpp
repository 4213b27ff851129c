#include "node/beauty/ZuFaceBuffingWhiteNode.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuFaceBeautifyEvent.h"
#include "node/beauty/ZuFaceBuffingWhiteMaterial_ES30.h"
#include "node/face/ZuNodePerson.h"
#include "platform/ZuLog.h"

#include <cmath>

namespace {

const int kBestEs2Type = 3;
const int kFirstFaceAwareType = 4;

const char* programOfType(int type) {
    static const char* const keys[] = {"faceBeautify",           "faceBuffingWhiteLow",   "faceBuffingWhite",
                                       "faceBuffingWhiteHigh",   "faceBuffingWhite_es30Low",
                                       "faceBuffingWhite_es30",  "faceBuffingWhite_es30High"};
    if (type < 0) type = 0;
    if (type > 6) type = 6;
    return keys[type];
}

} // namespace

ZuFaceBuffingWhiteNode::ZuFaceBuffingWhiteNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuFaceBuffingWhiteNode"); }

int ZuFaceBuffingWhiteNode::effectiveType(int configuredType, int glVersion) {
    int type = configuredType < 0 ? 0 : (configuredType > 6 ? 6 : configuredType);
    if (type >= kFirstFaceAwareType && glVersion < 0x30000) return kBestEs2Type;
    return type;
}

void ZuFaceBuffingWhiteNode::zuinit() {
    ZuFilter::zuinit();
    ZuConfig* config = ZuGBase::configOf(app);
    if (!config) {
        QZLOGE("ZuFaceBuffingWhiteNode '%s': no engine configuration, no smoothing", getname().c_str());
        return;
    }
    qualityType = effectiveType(config->faceBeautyType, config->glversion);
    if (qualityType != config->faceBeautyType && config->faceBeautyType >= kFirstFaceAwareType)
        QZLOGW("ZuFaceBuffingWhiteNode '%s': skin quality %d needs ES 3 (GL version 0x%x); using quality %d",
               getname().c_str(), config->faceBeautyType, config->glversion, qualityType);
    const Camera* camera = config->getCamera(getSceneName().c_str());
    float width = camera ? static_cast<float>(camera->width) : 0.0f;
    float height = camera ? static_cast<float>(camera->height) : 0.0f;
    const char* key = programOfType(qualityType);
    if (qualityType >= kFirstFaceAwareType)
        material = new ZuFaceBuffingWhiteMaterial_ES30(app, key, width, height);
    else
        material = new ZuFaceBuffingWhiteMaterial(app, key, width, height);
    material->init();
    material->setWidthAndHeight(static_cast<float>(config->getDesignWidth()),
                                static_cast<float>(config->getDesignHeight()));
}

void ZuFaceBuffingWhiteNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuFaceBuffingWhiteNode::update(float dt) {
    ZuFilter::update(dt);
    if (!material) return;
    if (ZuPersonTracker* tracker = ZuNodePerson::trackerOfPresent(this)) material->updateFacePoint(tracker);
    bindPicture(material);
}

void ZuFaceBuffingWhiteNode::render() {
    if (!isVisible()) return;
    // Without a program the draw would be skipped after the swap, losing
    // the picture for the frame: better no pass at all.
    if (!material || !material->getProgram()) return;
    pushPass(RS_FILTER, "FaceBuffingWhite swap", "FaceBuffingWhite");
}

bool ZuFaceBuffingWhiteNode::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_FACE_BEAUTIFY && event->resUID == getresUID() &&
        event->sceneName == getSceneName()) {
        auto* beautify = static_cast<ZuFaceBeautifyEvent*>(event);
        updateSmooth(beautify->v0);
        updateWhite(beautify->v1);
    }
    return ZuFilter::procEvent(event);
}

// Host strengths live in 0..1; the material clamps, the log says so, since
// an out-of-range value is a host bug that would otherwise go unnoticed.
void ZuFaceBuffingWhiteNode::updateSmooth(float value) {
    if (!(value >= 0.0f && value <= 1.0f))
        QZLOGW("ZuFaceBuffingWhiteNode '%s': smooth %g outside 0..1, clamped", getname().c_str(), value);
    if (std::isnan(value)) value = 0.0f;
    if (material) material->setSmooth(value);
}

void ZuFaceBuffingWhiteNode::updateWhite(float value) {
    if (!(value >= 0.0f && value <= 1.0f))
        QZLOGW("ZuFaceBuffingWhiteNode '%s': white %g outside 0..1, clamped", getname().c_str(), value);
    if (std::isnan(value)) value = 0.0f;
    if (material) material->setWhite(value);
}
