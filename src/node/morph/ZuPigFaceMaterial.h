#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "pigFace" warp program: three side pairs pushed apart and pulled in, five vertical ones.
class ZuPigFaceMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuPigFaceMaterial(ZuAppMain* app);
};
