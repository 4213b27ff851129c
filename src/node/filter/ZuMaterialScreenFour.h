#pragma once

#include "render/material/ZuGMaterial.h"

// Four copies of the picture, one per quarter, as a short screen effect.
// Made for ZuFilterOutter::setMaterial; nothing of its own to set.
class ZuMaterialScreenFour : public ZuGMaterial {
public:
    explicit ZuMaterialScreenFour(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
};
