#pragma once

#include "render/material/ZuGMaterial.h"

// A plain copy of the picture moved up or down by offsetY (clip units).
class ZuFilterShakeMaterial : public ZuGMaterial {
public:
    explicit ZuFilterShakeMaterial(ZuAppMain* app) : ZuGMaterial(app, "filterShake") {}

    void _refreshInner() override;
    void setOffsetY(float value) { offsetY = value; }
    float getOffsetY() const { return offsetY; }

private:
    float offsetY = 0.0f;
};
