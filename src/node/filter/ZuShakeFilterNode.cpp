#include "node/filter/ZuShakeFilterNode.h"

#include "node/filter/ZuFilterShakeMaterial.h"

ZuShakeFilterNode::ZuShakeFilterNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuShakeFilterNode"); }

ZuShakeFilterNode::~ZuShakeFilterNode() { qzSafeRelease(material); }

void ZuShakeFilterNode::zuinit() {
    ZuFilter::zuinit();
    if (!material) material = new ZuFilterShakeMaterial(app);
}

void ZuShakeFilterNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuShakeFilterNode::update(float dt) {
    ZuFilter::update(dt);
    bindPicture(material);
}

void ZuShakeFilterNode::render() {
    if (!isVisible() || !material) return;
    pushPass(RS_FILTER, "ZuShakeFilterNode swap", "ZuShakeFilterNode render");
}
