#pragma once

#include "render/material/ZuGMaterial.h"

// The shared part of the lens materials: the size of one camera pixel in
// texture coordinates, the lens radius in camera pixels and how strongly the
// lens pulls (positive swells, negative shrinks, 0 leaves the picture).
class ZuAotuMirror : public ZuGMaterial {
public:
    ZuAotuMirror(ZuAppMain* app, const char* programKey) : ZuGMaterial(app), programKey(programKey) {}

    // Takes the program of the key (GL thread).
    void init() override;
    void _refreshInner() override;

    void setSamplerStep(float x, float y);
    void setRadius(float value) { radius = value; }
    void setIntensity(float value) { intensity = value; }

    const float* getSamplerStep() const { return samplerStep; }
    float getRadius() const { return radius; }
    float getIntensity() const { return intensity; }

private:
    const char* programKey;
    float samplerStep[2] = {1.0f, 1.0f};
    float radius = 0.0f;
    float intensity = 0.0f;
};
