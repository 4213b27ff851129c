#pragma once

#include "render/material/ZuGMaterial.h"

// One half of a face swap: camera pixels of the other face (slot 0) faded by
// the soft swap mask (slot 1), program "drawfaceBlend", premultiplied
// blending (one, one minus source alpha).
class ZuMaterialSwapFace : public ZuGMaterial {
public:
    explicit ZuMaterialSwapFace(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
};
