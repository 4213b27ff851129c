#pragma once

#include "render/material/ZuMaterialColorSelect2d.h"

// Flat-coloured debug lines and shapes.
class ZuMaterialColorLine : public ZuMaterialColorSelect2d {
public:
    explicit ZuMaterialColorLine(ZuAppMain* app) : ZuMaterialColorSelect2d(app) {}

protected:
    const char* programKey() const override;
};
