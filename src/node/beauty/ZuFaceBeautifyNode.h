#pragma once

#include "node/filter/ZuFilter.h"

class ZuDataSwap;
class ZuFaceBeautifyMaterial;
class ZuPerson;
class ZuRenderPickReadDataObject;
class ZuTexture;

// Soften plus a skin-tone curve. Once a sampling period it reads twelve
// single pixels on the cheeks of person 1 before any overlay is drawn; the
// mean of one read shapes the curves of the next period. Nothing is drawn
// before the first read, so the curve never starts from a made-up colour.
class ZuFaceBeautifyNode : public ZuFilter {
public:
    static constexpr int kSamples = 12;
    // Time units (the frame delta's) between two skin-tone reads.
    static constexpr float kSamplePeriod = 1000.0f;

    explicit ZuFaceBeautifyNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void updateSmooth(float value);
    void updateCurveAdjust(float value);
    void updateGainAdjust(float value);

    // The two points a third and two thirds of the way from a to b, their y
    // climbing from the lower of the two: out = x1, y1, x2, y2.
    static void pickupPoint(float ax, float ay, float bx, float by, float out[4]);

    ZuFaceBeautifyMaterial* getMaterial() const { return material; }
    bool hasSampled() const { return sampled; }
    // The twelve sample points of the latest period, framebuffer pixels.
    const float* getSamplePoints() const;

private:
    void computeSamplePoints(ZuPerson* person);
    void averageLastRead();

    ZuFaceBeautifyMaterial* material = nullptr;
    ZuRenderPickReadDataObject* pickObject = nullptr;
    ZuDataSwap* pixelSwap = nullptr;
    ZuDataSwap* pointSwap = nullptr;
    ZuTexture* lookup = nullptr;
    float elapsed = kSamplePeriod;
    bool sampled = false;
};
