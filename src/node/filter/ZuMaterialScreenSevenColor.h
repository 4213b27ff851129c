#pragma once

#include "render/material/ZuGMaterial.h"

// Half the picture under seven bands of colour by height, as a short screen effect.
// Made for ZuFilterOutter::setMaterial; nothing of its own to set.
class ZuMaterialScreenSevenColor : public ZuGMaterial {
public:
    explicit ZuMaterialScreenSevenColor(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
};
