#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "kejiSmallShortFace" warp program: six side pairs and five vertical ones.
class ZuKejiSmallFaceShortMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuKejiSmallFaceShortMaterial(ZuAppMain* app);
};
