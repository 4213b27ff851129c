#pragma once

#include "render/material/ZuGMaterial.h"

// Cuts the background with a mask (slot 1); the edge form paints the soft
// border of the mask in edgecolor.
class ZuSeparationMaterial : public ZuGMaterial {
public:
    ZuSeparationMaterial(ZuAppMain* app, const char* key) : ZuGMaterial(app, key) {}
    void _refreshInner() override;
    void setEdgeColor(float r, float g, float b, float a);

private:
    float edgeColor[4] = {1.0f, 1.0f, 1.0f, 1.0f};
};
