#pragma once

#include "render/material/ZuGMaterial.h"

// A model without a skeleton: textured through its model matrix ("normal3d").
class ZuMatCommonModel : public ZuGMaterial {
public:
    explicit ZuMatCommonModel(ZuAppMain* app) : ZuGMaterial(app, "normal3d") {}
};
