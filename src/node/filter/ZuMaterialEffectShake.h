#pragma once

#include "render/material/ZuGMaterial.h"

// The channel shake's clock and texel size. The shake beats with a period of
// pi seconds (kPeriod); when a period completes the clock goes back to 0,
// the resting phase, and the node shows the picture untouched for that
// frame, so that every period ends on the original picture.
class ZuMaterialEffectShake : public ZuGMaterial {
public:
    static constexpr float kPeriod = 3.14159265f;

    explicit ZuMaterialEffectShake(ZuAppMain* app) : ZuGMaterial(app, "effectShake") {}

    // The split runs sideways only: the height is held far larger than any picture.
    void setWidthAndHeight(int w, int h);
    void update(float ms) override;
    void _refreshInner() override;

    float getTime() const { return time; }
    void setTime(float seconds) { time = seconds; }
    bool atRest() const { return time == 0.0f; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
    // The displacement factor of the shader at a time in seconds.
    static double amountAt(double seconds);

private:
    float time = 0.0f;
    float width = 1.0f;
    float height = 100000.0f;
};
