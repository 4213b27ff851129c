#include "node/morph/ZuSmallFaceNode.h"

#include "data/DETECTTYPE.h"
#include "node/morph/ZuSmallFaceMaterial.h"

namespace {
const int kLeftAS[] = {17, 16, 15, 14, 13, 12, 11, 10};
const int kRightAS[] = {1, 2, 3, 4, 5, 6, 7, 8};
const int kLeftST[] = {31, 29, 27, 25, 23, 21, 19, 17};
const int kRightST[] = {1, 3, 5, 7, 9, 11, 13, 15};
// Our own tracker's 17-point jaw, paired ear to chin.
const int kLeftSelf[] = {16, 15, 14, 13, 12, 11, 10, 9};
const int kRightSelf[] = {0, 1, 2, 3, 4, 5, 6, 7};
} // namespace

ZuSmallFaceWarpMaterial* ZuSmallFaceNode::makeMaterial() { return new ZuSmallFaceMaterial(app); }

ZuSmallFaceWarpNode::Recipe ZuSmallFaceNode::recipe(int detectType) const {
    Recipe r;
    r.sidePairs = 8;
    r.arraySize = 8;
    r.sideMargin = 1.5f;
    switch (detectType) {
    case DETECTTYPE_AS: r.left = kLeftAS, r.right = kRightAS; break;
    case DETECTTYPE_ST:
    case DETECTTYPE_FP: r.left = kLeftST, r.right = kRightST; break;
    default: r.left = kLeftSelf, r.right = kRightSelf; break;
    }
    return r;
}

void ZuSmallFaceNode::fillDeltas(float d, float, float* side, float*) const {
    const bool soft = morphType == 3;
    const float upper[3] = {soft ? d / 20 : d / 10, soft ? d / 20 : d / 7, soft ? d / 20 : d / 3};
    for (int i = 0; i < 8; ++i) side[i] = i < 3 ? upper[i] : d;
}
