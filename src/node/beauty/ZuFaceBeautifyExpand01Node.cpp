#include "node/beauty/ZuFaceBeautifyExpand01Node.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuFaceBeautifyEvent.h"
#include "node/beauty/ZuFaceBeautifyOptimizeMaterialEs30.h"
#include "node/face/ZuNodePerson.h"
#include "platform/ZuLog.h"

#include <cstring>

ZuFaceBeautifyExpand01Node::ZuFaceBeautifyExpand01Node(ZuAppMain* app) : ZuFilter(app) {
    setType("ZuFaceBeautifyExpand01Node");
}

void ZuFaceBeautifyExpand01Node::zuinit() {
    ZuFilter::zuinit();
    ZuConfig* config = ZuGBase::configOf(app);
    // The skin mean is sampled in the vertex stage, which ES 2 devices need
    // not support: there the plain soften runs on the whole picture.
    if (config && config->glversion < 0x30000) {
        QZLOGW("ZuFaceBeautifyExpand01Node '%s': the skin-limited soften needs ES 3 (GL version 0x%x); "
               "softening the whole picture", getname().c_str(), config->glversion);
        material = new ZuFaceBeautifyOptimizeMaterial(app);
    } else {
        material = new ZuFaceBeautifyOptimizeMaterialEs30(app);
    }
    material->init();
    if (config)
        material->setWidthAndHeight(static_cast<float>(config->getDesignWidth()),
                                    static_cast<float>(config->getDesignHeight()));
}

void ZuFaceBeautifyExpand01Node::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuFaceBeautifyExpand01Node::update(float dt) {
    ZuFilter::update(dt);
    if (!material) return;
    if (ZuPersonTracker* tracker = ZuNodePerson::trackerOfPresent(this)) material->updateFacePoint(tracker);
    bindPicture(material);
}

void ZuFaceBeautifyExpand01Node::render() {
    if (!isVisible()) return;
    if (!material || !material->getProgram() || !ZuNodePerson::trackerOfPresent(this)) return;
    pushPass(RS_FILTER, "FaceBeautifyExpand01 swap", "FaceBeautifyExpand01");
}

bool ZuFaceBeautifyExpand01Node::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_FACE_BEAUTIFY && event->resUID == getresUID() &&
        std::strncmp(getname().c_str(), event->sceneName.c_str(), event->sceneName.size()) == 0)
        updateSmooth(static_cast<ZuFaceBeautifyEvent*>(event)->v0);
    return ZuFilter::procEvent(event);
}

void ZuFaceBeautifyExpand01Node::updateSmooth(float value) {
    if (material) material->setSmooth(value);
}
