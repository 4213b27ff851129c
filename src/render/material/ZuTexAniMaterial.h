#pragma once

#include "render/material/ZuGMaterial.h"

// A texture that scrolls in one direction at a steady speed (in texture
// widths per second), premultiplied-alpha blended over the picture.
class ZuTexAniMaterial : public ZuGMaterial {
public:
    explicit ZuTexAniMaterial(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
    // dt in milliseconds; advances the offsets and keeps them in 0 to 1.
    void update(float dt) override;
    void _refreshInner() override;

    void setDegreeAndSpeed(float degree, float newSpeed);
    float getOffsetX() const { return offsetX; }
    float getOffsetY() const { return offsetY; }

private:
    float angle = 0.0f;  // radians
    float speed = 0.1f;
    float offsetX = 0.0f;
    float offsetY = 0.0f;
};
