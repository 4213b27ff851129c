#include "node/morph/ZuSmallShortShrinkNode.h"

#include "node/morph/ZuSmallShortShrinkFaceMaterial.h"

namespace {
// Landmark numbers of the AS layout, used on every back end.
const int kLeft[] = {1, 2, 3, 4, 5, 6};
const int kRight[] = {17, 16, 15, 14, 13, 12};
const int kTop[] = {5, 6, 7, 8, 9, 10, 11, 12, 13};
const int kBottom[] = {41, 42, 43, 44, 97, 52, 53, 54, 53};
} // namespace

ZuSmallFaceWarpMaterial* ZuSmallShortShrinkNode::makeMaterial() { return new ZuSmallShortShrinkFaceMaterial(app); }

ZuSmallFaceWarpNode::Recipe ZuSmallShortShrinkNode::recipe(int) const {
    Recipe r;
    r.left = kLeft, r.right = kRight, r.sidePairs = 6;
    r.top = kTop, r.bottom = kBottom, r.verticalPairs = 9;
    r.sideMargin = 1.0f, r.verticalMargin = 1.5f;
    return r;
}

void ZuSmallShortShrinkNode::fillDeltas(float d, float b, float* side, float* vertical) const {
    const float sides[6] = {d / 10, d / 7, d / 3, d, d, d};
    for (int i = 0; i < 6; ++i) side[i] = sides[i];
    for (int i = 0; i < 9; ++i) vertical[i] = i == 4 ? 1.5f * b : b;
}
