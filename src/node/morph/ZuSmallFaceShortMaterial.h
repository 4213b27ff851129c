#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "shortFace" warp program: six side pairs and nine vertical ones.
class ZuSmallFaceShortMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuSmallFaceShortMaterial(ZuAppMain* app);
};
