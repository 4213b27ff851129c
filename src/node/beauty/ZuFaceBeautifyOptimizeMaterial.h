#pragma once

#include "render/material/ZuGMaterial.h"

class ZuPersonTracker;

// The plain soften: a green-channel high-pass mask that brightens smooth
// areas, at a strength 0..1.
class ZuFaceBeautifyOptimizeMaterial : public ZuGMaterial {
public:
    explicit ZuFaceBeautifyOptimizeMaterial(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
    void _refreshInner() override;
    virtual void updateFacePoint(ZuPersonTracker* tracker) {}

    // Sets "imageSize", the picture's size in pixels.
    void setWidthAndHeight(float newWidth, float newHeight);
    // v clamped to 0..1, no factor.
    void setSmooth(float v);
    float getSmooth() const { return softenStrength; }

protected:
    // The program this class draws with.
    virtual const char* programKey() const { return "faceBeautify"; }

    float imageSize[2] = {720.0f, 1280.0f};
    float softenStrength = 0.0f;
};
