#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "smallShortShrink" warp program: six side pairs and nine vertical ones.
class ZuSmallShortShrinkFaceMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuSmallShortShrinkFaceMaterial(ZuAppMain* app);
};
