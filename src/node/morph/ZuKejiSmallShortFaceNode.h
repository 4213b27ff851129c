#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Short face only: the side pairs push nothing, five vertical pairs shorten the face.
class ZuKejiSmallShortFaceNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuKejiSmallShortFaceNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuKejiSmallShortFaceNode"); }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;
};
