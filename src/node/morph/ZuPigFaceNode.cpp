#include "node/morph/ZuPigFaceNode.h"

#include "node/morph/ZuPigFaceMaterial.h"

namespace {
// Landmark numbers of the AS layout, used on every back end.
const int kLeft[] = {15, 14, 12, 12};
const int kRight[] = {3, 4, 6, 6};
const int kTop[] = {7, 8, 9, 10, 11};
const int kBottom[] = {66, 65, 98, 72, 71};
} // namespace

ZuSmallFaceWarpMaterial* ZuPigFaceNode::makeMaterial() { return new ZuPigFaceMaterial(app); }

ZuSmallFaceWarpNode::Recipe ZuPigFaceNode::recipe(int) const {
    Recipe r;
    r.left = kLeft, r.right = kRight, r.sidePairs = 4;
    r.top = kTop, r.bottom = kBottom, r.verticalPairs = 5;
    r.sideMargin = 2.0f, r.verticalMargin = 2.0f;
    r.arraySize = 4;
    return r;
}

void ZuPigFaceNode::fillDeltas(float d, float b, float* side, float* vertical) const {
    (void)b;
    const float sides[5] = {3 * d, 3 * d, 5 * d, 0.1f * d, 2 * d};
    for (int i = 0; i < 5; ++i) side[i] = sides[i];
    for (int i = 0; i < 5; ++i) vertical[i] = 2 * d;
}
