#pragma once

#include "render/material/ZuMaterialColorSelect2d.h"

// Picks a 3D object by its flat colour.
class ZuMaterialColorSelect3d : public ZuMaterialColorSelect2d {
public:
    explicit ZuMaterialColorSelect3d(ZuAppMain* app) : ZuMaterialColorSelect2d(app) {}

protected:
    const char* programKey() const override;
};
