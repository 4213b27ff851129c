#pragma once

#include "node/morph/ZuSmallFaceWarpMaterial.h"

// The "smallShrinkFace" warp program: eight side pairs, always all of them.
class ZuSmallShrinkFaceMaterial : public ZuSmallFaceWarpMaterial {
public:
    explicit ZuSmallShrinkFaceMaterial(ZuAppMain* app);
};
