#pragma once

#include "render/material/ZuGMaterial.h"

// A full-screen copy of slot 0 ("screennor"), depth test on, no blending.
class ZuMaterialScreen : public ZuGMaterial {
public:
    explicit ZuMaterialScreen(ZuAppMain* app) : ZuGMaterial(app) {}
    void init() override;
};
