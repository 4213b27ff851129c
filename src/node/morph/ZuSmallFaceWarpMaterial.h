#pragma once

#include "render/material/ZuGMaterial.h"

// The state of a small-face warp pass: contour point pairs as texture
// coordinates, the push per pair, the radius and the bounds outside which
// the shader leaves pixels alone. Each warp's own material names its
// program; all copy the same uniforms.
class ZuSmallFaceWarpMaterial : public ZuGMaterial {
public:
    static constexpr int kMaxPairs = 9;

    ZuSmallFaceWarpMaterial(ZuAppMain* app, const char* program) : ZuGMaterial(app), program(program) {}

    void init() override;
    void _refreshInner() override;

    void setRadius(float value) { radius = value; }
    void setAspectRatio(float value) { aspectRatio = value; }
    void setArraySize(int value) { arraySize = value; }
    void setSmallOrFat(bool small) { isSmall = small; }
    // count pairs of x, y.
    void setLeftContourPoints(const float* xy, int count) { copy(left, xy, count * 2); }
    void setRightContourPoints(const float* xy, int count) { copy(right, xy, count * 2); }
    void setTopContourPoints(const float* xy, int count) { copy(top, xy, count * 2); }
    void setBottomContourPoints(const float* xy, int count) { copy(bottom, xy, count * 2); }
    void setDeltaArray(const float* values, int count) { copy(delta, values, count); }
    void setDeltaShortArray(const float* values, int count) { copy(deltaShort, values, count); }
    void setBounds(float minX, float maxX, float minY, float maxY);
    void setShortBounds(float minX, float maxX, float minY, float maxY);

    float getRadius() const { return radius; }
    const float* getDeltaArray() const { return delta; }
    const float* getBounds() const { return bounds; } // minX, maxX, minY, maxY

private:
    static void copy(float* to, const float* from, int n);

    const char* program;
    float radius = 0.0f, aspectRatio = 1.0f;
    int arraySize = 8;
    bool isSmall = true;
    float left[kMaxPairs * 2] = {}, right[kMaxPairs * 2] = {}, top[kMaxPairs * 2] = {}, bottom[kMaxPairs * 2] = {};
    float delta[kMaxPairs] = {}, deltaShort[kMaxPairs] = {};
    float bounds[4] = {}, shortBounds[4] = {};
};
