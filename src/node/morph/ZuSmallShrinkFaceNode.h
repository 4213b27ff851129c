#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Small face by all eight contour pairs with a tighter margin than ZuSmallFaceNode.
class ZuSmallShrinkFaceNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuSmallShrinkFaceNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuSmallShrinkFaceNode"); }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;
};
