#pragma once

#include "render/material/ZuGMaterial.h"

// Per-channel tone curves from a curve image ("Chuxia.asv" in the texture
// cache) applied to the scene's picture. The curve image is only looked up,
// never loaded here: until someone has put it in the cache, slot 1 keeps
// whatever it held. Once found, the slot holds the image for as long as the
// material lives.
class ZuMaterialToneCurves : public ZuGMaterial {
public:
    explicit ZuMaterialToneCurves(ZuAppMain* app) : ZuGMaterial(app, "ToneCurveFilter") {}
    void update(float dt) override;
};
