#include "node/filter/ZuSketchFilterNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuConfig.h"
#include "node/filter/ZuCameraPictureSize.h"
#include "node/filter/ZuFilterSketchMaterial.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

ZuSketchFilterNode::ZuSketchFilterNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuSketchFilterNode"); }

ZuSketchFilterNode::~ZuSketchFilterNode() { qzSafeRelease(material); }

void ZuSketchFilterNode::zuinit() {
    ZuFilter::zuinit();
    if (!material) material = new ZuFilterSketchMaterial(app);
    // The hatching image is small and needed by the first frame: read it now.
    ZuTexMgr* textures = texMgr();
    ZuTexture* hatch = textures ? textures->getTextureSync(kHatchImage, true, false) : nullptr;
    hasHatch = hatch && (hatch->hasData() || hatch->getbLoad());
    if (hasHatch) {
        material->setTexture1(hatch);
    } else {
        // Mid tones then show the picture itself; lines and the other tones stay.
        QZLOGW("sketch filter: hatching image '%s' did not load", kHatchImage);
    }
    updateSteps();
    material->setThresholdUpper(200.0f);
    material->setThresholdDown(100.0f);
    material->setThresholdEdge(-240.0f);
    material->setTexcoordFlip(1.0f, 1.0f);
}

void ZuSketchFilterNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuSketchFilterNode::updateSteps() {
    int width = 0, height = 0;
    const bool usable = ZuCameraPictureSize::of(app, ZuConfig::kDefaultCamera, &width, &height);
    if (!usable && !warnedSize) QZLOGW("sketch filter: the camera record has no usable size, one-pixel steps assumed");
    warnedSize = !usable;
    material->setSamperStepX(1.0f / static_cast<float>(width));
    material->setSamperStepY(1.0f / static_cast<float>(height));
}

void ZuSketchFilterNode::update(float dt) {
    ZuFilter::update(dt);
    if (!material) return;
    // The host may change the camera format after the node was made.
    updateSteps();
    bindPicture(material);
    if (!hasHatch) material->setTexture1FBO(currentSceneFbo(), false);
}

void ZuSketchFilterNode::render() {
    if (!isVisible() || !material || !getActiveScene()) return;
    pushPass(RS_FILTER, "ZuSketchFilterNode swap", "ZuSketchFilterNode render");
}
