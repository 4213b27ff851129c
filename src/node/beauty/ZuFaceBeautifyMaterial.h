#pragma once

#include "render/material/ZuGMaterial.h"

#include <cstdint>

// The soften pass with a skin-tone curve: the picture is softened, then each
// channel goes through a 256-entry curve built from the mean skin colour, which
// lifts the mid tones of skin and darkens only the deepest shadows.
class ZuFaceBeautifyMaterial : public ZuGMaterial {
public:
    static constexpr int kLevels = 256;
    static constexpr int kOffsets = 16;

    explicit ZuFaceBeautifyMaterial(ZuAppMain* app);

    void init() override;
    ~ZuFaceBeautifyMaterial() override;
    void destroy() override;
    void _refreshInner() override;

    // Ignored below 0; refreshes the blur offsets.
    void setSmooth(float v);
    void updateCurveAdjust(float v) { curveAdjust = v; }
    void setGainAdjust(float v);
    void setWidthAndHeight(float newWidth, float newHeight);
    // The 256 x 1 RGB texture that receives the curves; slot 1.
    void setLookupTexture(ZuTexture* texture);

    // A new mean skin colour (bytes): rebuilds the curves at the level of
    // curveAdjust (or of the smooth strength when that is 0) and uploads them.
    void setColorAverage(int r, int g, int b, int a);

    // The three curves of a mean colour at a level 0..10, as RGB triples.
    // False (table untouched) for a mean whose red is not 1..255.
    static bool _getCurve(uint8_t table[kLevels * 3], const int mean[3], int level);
    // One channel's curve: a parabola below lo that darkens shadows ending
    // at (lo, lo), a lift between lo and hi of strength gain, identity above.
    static void get_single_curve(int lo, int hi, int dark, int gain, float curve[kLevels]);

    float getSmooth() const { return smooth; }
    const uint8_t* getTable() const { return table; }
    const float* getOffsets() const { return &offsets[0][0]; }

private:
    void updateLocation();

    float smooth = 0.0f;
    float curveAdjust = 1.0f;
    int meanRGB[3] = {0, 0, 0};
    int previousMean[3] = {0, 0, 0};
    float width = 720.0f;
    float height = 1280.0f;
    float gainAdjust = 1.0f;
    bool smoothRefreshed = false;
    bool gainRefreshed = false;
    uint8_t table[kLevels * 3];
    float offsets[kOffsets][2] = {};
    ZuTexture* lookup = nullptr;
};
