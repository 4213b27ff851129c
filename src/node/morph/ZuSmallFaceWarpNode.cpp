#include "node/morph/ZuSmallFaceWarpNode.h"

#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "node/face/ZuNodePerson.h"
#include "node/mask/ZuFaceFrame.h"
#include "node/morph/ZuSmallFaceWarpMaterial.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonTracker.h"
#include "platform/ZuLog.h"

#include <algorithm>
#include <cmath>

ZuSmallFaceWarpNode::ZuSmallFaceWarpNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuSmallFaceWarpNode"); }

void ZuSmallFaceWarpNode::zuinit() {
    ZuFilter::zuinit();
    material = makeMaterial();
    material->init();
}

void ZuSmallFaceWarpNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuSmallFaceWarpNode::setSmallLevel(float level) {
    if (!(level >= 0.0f)) {
        QZLOGW("%s '%s': level %g refused, kept %g", getType().c_str(), getname().c_str(), level, smallLevel);
        return;
    }
    smallLevel = level;
}

void ZuSmallFaceWarpNode::setDeltaArray(const float* values) {
    if (values) std::copy(values, values + kMaxPairs, deltaArray);
}

bool ZuSmallFaceWarpNode::computePairs() {
    ZuPerson* person = ZuNodePerson::of(this);
    ZuPersonTracker* tracker = person ? person->getTracker() : nullptr;
    float width = 0.0f, height = 0.0f;
    if (!person || !person->getExist() || !tracker || !ZuFaceFrame::size(this, &width, &height)) return false;
    ZuConfig* config = ZuGBase::configOf(app);
    const Recipe r = recipe(config ? config->getDetectType() : 0);
    if (r.sidePairs == 0) return false;
    const float* face = person->getFaceData();
    auto texcoords = [&](const int* ids, int count, float* out) {
        for (int i = 0; i < count; ++i) out[i * 2] = face[ids[i] * 2] / width, out[i * 2 + 1] = face[ids[i] * 2 + 1] / height;
    };
    float left[kMaxPairs * 2] = {}, right[kMaxPairs * 2] = {}, top[kMaxPairs * 2] = {}, bottom[kMaxPairs * 2] = {};
    texcoords(r.left, r.sidePairs, left);
    texcoords(r.right, r.sidePairs, right);
    if (r.verticalPairs) {
        texcoords(r.top, r.verticalPairs, top);
        texcoords(r.bottom, r.verticalPairs, bottom);
    }
    const float s = std::min(tracker->eyeDistance, 260.0f) / 130.0f * smallLevel;
    const float d = kStep * s;
    const float radius = kStep * 20.0f * s;
    float vertical[kMaxPairs] = {};
    fillDeltas(d, d * bearValue, deltaArray, vertical);

    auto bounds = [](const float* a, const float* b, int count, float margin, float out[4]) {
        float minX = 1.0f, maxX = 0.0f, minY = 1.0f, maxY = 0.0f;
        for (const float* set : {a, b})
            for (int i = 0; i < count; ++i) {
                minX = std::min(minX, set[i * 2]), maxX = std::max(maxX, set[i * 2]);
                minY = std::min(minY, set[i * 2 + 1]), maxY = std::max(maxY, set[i * 2 + 1]);
            }
        const float v[4] = {minX - margin, maxX + margin, minY - margin, maxY + margin};
        for (int k = 0; k < 4; ++k) out[k] = std::min(1.0f, std::max(0.0f, v[k]));
    };
    float sides[4], shorts[4] = {0, 0, 0, 0};
    bounds(left, right, r.sidePairs, r.sideMargin * radius, sides);
    if (r.verticalPairs) bounds(top, bottom, r.verticalPairs, r.verticalMargin * radius, shorts);

    material->setRadius(radius);
    material->setAspectRatio(height / width);
    material->setSmallOrFat(isSmall);
    if (r.arraySize) material->setArraySize(r.arraySize);
    material->setLeftContourPoints(left, r.sidePairs);
    material->setRightContourPoints(right, r.sidePairs);
    material->setTopContourPoints(top, r.verticalPairs);
    material->setBottomContourPoints(bottom, r.verticalPairs);
    material->setDeltaArray(deltaArray, kMaxPairs);
    material->setDeltaShortArray(vertical, kMaxPairs);
    material->setBounds(sides[0], sides[1], sides[2], sides[3]);
    material->setShortBounds(shorts[0], shorts[1], shorts[2], shorts[3]);
    return true;
}

void ZuSmallFaceWarpNode::update(float dt) {
    ZuFilter::update(dt);
    warping = material && computePairs();
    if (warping) bindPicture(material);
}

void ZuSmallFaceWarpNode::render() {
    if (!isVisible() || !warping || !material || !material->getProgram()) return;
    ZuPerson* person = ZuNodePerson::of(this);
    if (!person || !person->getExist()) return;
    pushPass(RS_FACE_WARP, "null", "smallFaceRender");
}
