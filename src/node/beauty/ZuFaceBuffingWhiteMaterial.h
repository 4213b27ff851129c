#pragma once

#include "render/material/ZuGMaterial.h"

class ZuPersonTracker;

// The parametric skin smoother and whitener. Host strengths in 0..1 map to
// the shader's ranges here, so every caller gets the same curve.
class ZuFaceBuffingWhiteMaterial : public ZuGMaterial {
public:
    // programKey: one of the smoothing programs; width, height: the real
    // camera size until setWidthAndHeight gives the design size.
    ZuFaceBuffingWhiteMaterial(ZuAppMain* app, const char* programKey, float width, float height);

    // Takes the program of the key (GL thread).
    void init() override;
    void _refreshInner() override;
    // Skin sample positions from the face, for the variants that use them.
    virtual void updateFacePoint(ZuPersonTracker* tracker) {}

    // v clamped to 0..1, stored as 0.8 v.
    void setSmooth(float v);
    // v clamped to 0..1, stored as 0.8 v + 0.2.
    void setWhite(float v);
    void setWidthAndHeight(float newWidth, float newHeight);

    float getSmooth() const { return smooth; }
    float getWhite() const { return white; }
    const char* getProgramKey() const { return programKey; }
    // singleStepOffset and params as _refreshInner uploads them.
    void stepOffset(float out[2]) const;
    void params(float out[4]) const;

protected:
    const char* programKey;
    float smooth = 1.0f;
    float white = 0.6f;
    float width;
    float height;
};
