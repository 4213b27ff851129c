#pragma once

#include "render/material/ZuMaterialColorSelect2d.h"

// Picks a Spine attachment by its visible texels only.
class ZuMaterialColorSelect2dSpine : public ZuMaterialColorSelect2d {
public:
    explicit ZuMaterialColorSelect2dSpine(ZuAppMain* app) : ZuMaterialColorSelect2d(app) {}

protected:
    const char* programKey() const override;
};
