#pragma once

#include "render/material/ZuGMaterial.h"

// The face warp's state: twelve face positions as texture coordinates, eye
// enlarging per eye and four slimming factors (1 leaves the face as it is).
class ZuBeautyMaterial : public ZuGMaterial {
public:
    static constexpr int kSlots = 24;
    static constexpr int kUsed = 12;

    explicit ZuBeautyMaterial(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
    void _refreshInner() override;

    // Position i (0..11 reach the shader) as texture coordinates.
    void setLocation(int i, float x, float y);
    const float* getLocation(int i) const { return i >= 0 && i < kSlots ? locations[i] : nullptr; }

    float eyeLarge[2] = {0.0001f, 0.0001f};
    float faceSlim = 1.0f;
    float chinSlim = 1.0f;
    float chinUpSlim = 1.0f;
    float chinMiddleSlim = 1.0f;

private:
    float locations[kSlots][2] = {};
};
