#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Small, short face as ZuSmallShortFaceNode, with its own program; the last vertical pair ends on landmark 53.
class ZuSmallShortShrinkNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuSmallShortShrinkNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuSmallShortShrinkNode"); }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;
};
