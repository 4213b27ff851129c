#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "smallFace" warp program: eight side pairs.
class ZuSmallFaceMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuSmallFaceMaterial(ZuAppMain* app);
};
