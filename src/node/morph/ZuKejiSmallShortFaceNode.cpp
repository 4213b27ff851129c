#include "node/morph/ZuKejiSmallShortFaceNode.h"

#include "node/morph/ZuKejiSmallFaceShortMaterial.h"

namespace {
// Landmark numbers of the AS layout, used on every back end.
const int kLeft[] = {1, 2, 3, 4, 5, 6};
const int kRight[] = {17, 16, 15, 14, 13, 12};
const int kTop[] = {7, 8, 9, 10, 11};
const int kBottom[] = {66, 65, 98, 72, 71};
} // namespace

ZuSmallFaceWarpMaterial* ZuKejiSmallShortFaceNode::makeMaterial() { return new ZuKejiSmallFaceShortMaterial(app); }

ZuSmallFaceWarpNode::Recipe ZuKejiSmallShortFaceNode::recipe(int) const {
    Recipe r;
    r.left = kLeft, r.right = kRight, r.sidePairs = 6;
    r.top = kTop, r.bottom = kBottom, r.verticalPairs = 5;
    r.sideMargin = 1.0f, r.verticalMargin = 1.5f;
    return r;
}

void ZuKejiSmallShortFaceNode::fillDeltas(float d, float b, float* side, float* vertical) const {
    (void)d;
    for (int i = 0; i < 6; ++i) side[i] = 0.0f;
    for (int i = 0; i < 5; ++i) vertical[i] = b;
}
