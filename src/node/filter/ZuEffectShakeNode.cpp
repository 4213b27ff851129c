#include "node/filter/ZuEffectShakeNode.h"

#include "node/filter/ZuCameraPictureSize.h"
#include "node/filter/ZuMaterialEffectShake.h"
#include "platform/ZuLog.h"

ZuEffectShakeNode::ZuEffectShakeNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuEffectShakeNode"); }

ZuEffectShakeNode::~ZuEffectShakeNode() { qzSafeRelease(material); }

void ZuEffectShakeNode::zuinit() {
    ZuFilter::zuinit();
    if (!material) material = new ZuMaterialEffectShake(app);
}

void ZuEffectShakeNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuEffectShakeNode::update(float dt) {
    ZuFilter::update(dt);
    if (!material) return;
    // The split is measured in pixels of the scene camera's picture.
    int width = 0, height = 0;
    const bool usable = ZuCameraPictureSize::of(app, getSceneName().c_str(), &width, &height);
    if (!usable && !warnedSize)
        QZLOGW("shake filter: camera of scene '%s' has no usable size", getSceneName().c_str());
    warnedSize = !usable;
    material->setWidthAndHeight(width, height);
    bindPicture(material);
    material->update(dt);
}

void ZuEffectShakeNode::render() {
    // At rest the picture goes through untouched: no pass at all.
    if (!isVisible() || !material || material->atRest()) return;
    pushPass(RS_FILTER, "ZuFaceBeautifyNode swap", "ZuFaceBeautifyNode render");
}
