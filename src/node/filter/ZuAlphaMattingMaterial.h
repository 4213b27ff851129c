#pragma once

#include "render/material/ZuGMaterial.h"

// The bounds of the background keying's colour classes: value bounds for
// black, grey and white, hue ranges in degrees for the colours. They are
// sent once, on the first refresh after a change, since they never move
// while the pass runs.
class ZuAlphaMattingMaterial : public ZuGMaterial {
public:
    struct color {
        float r, g, b, a;
    };

    explicit ZuAlphaMattingMaterial(ZuAppMain* app) : ZuGMaterial(app, "alphaMatting") {}

    void _refreshInner() override;

    void setColor(const color& min, const color& max, const color& out);
    void setColorMin(const color& value);
    void setColorMax(const color& value);
    void setColorOut(const color& value);
    bool getUniformsSet() const { return uniformsSet; }

private:
    bool uniformsSet = false;
    color colorMin{0.5f, 0.5f, 0.5f, 0.5f};
    color colorMax{1.0f, 1.0f, 1.0f, 1.0f};
    color colorOut{1.0f, 0.0f, 0.0f, 0.0f};
    float blackValueMin = 0.0f, blackValueMax = 0.25f;
    float graySaturationMin = 0.0f, graySaturationMax = 0.3f;
    float grayValueMin = 0.25f, grayValueMax = 0.8f;
    float whiteSaturationMin = 0.0f, whiteSaturationMax = 0.3f;
    float whiteValueMin = 0.8f, whiteValueMax = 1.0f;
    float redHueMin = 337.5f, redHueMax = 22.5f;
    float orangeHueMin = 22.5f, orangeHueMax = 45.0f;
    float yellowHueMin = 45.0f, yellowHueMax = 90.0f;
    float greenHueMin = 90.0f, greenHueMax = 205.5f;
    float cyanHueMin = 205.5f, cyanHueMax = 228.0f;
    float blueHueMin = 228.0f, blueHueMax = 292.5f;
    float purpleHueMin = 292.5f, purpleHueMax = 337.5f;
    float pinkHueMin = 306.0f, pinkHueMax = 324.0f;
};
