#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Small and short face: six side pairs narrow the jaw, nine vertical pairs pull the chin line up towards the nose.
class ZuSmallShortFaceNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuSmallShortFaceNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuSmallShortFaceNode"); }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;
};
