#include "node/morph/ZuSmallShrinkFaceNode.h"

#include "node/morph/ZuSmallShrinkFaceMaterial.h"

namespace {
// Landmark numbers of the AS layout, used on every back end.
const int kLeft[] = {17, 16, 15, 14, 13, 12, 11, 10};
const int kRight[] = {1, 2, 3, 4, 5, 6, 7, 8};
} // namespace

ZuSmallFaceWarpMaterial* ZuSmallShrinkFaceNode::makeMaterial() { return new ZuSmallShrinkFaceMaterial(app); }

ZuSmallFaceWarpNode::Recipe ZuSmallShrinkFaceNode::recipe(int) const {
    Recipe r;
    r.left = kLeft, r.right = kRight, r.sidePairs = 8;
    r.sideMargin = 1.0f;
    return r;
}

void ZuSmallShrinkFaceNode::fillDeltas(float d, float b, float* side, float* vertical) const {
    (void)b, (void)vertical;
    const float sides[8] = {d / 10, d / 7, d / 3, d, d, d, d, d};
    for (int i = 0; i < 8; ++i) side[i] = sides[i];
}
