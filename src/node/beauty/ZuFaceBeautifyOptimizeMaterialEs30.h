#pragma once

#include "node/beauty/ZuFaceBeautifyOptimizeMaterial.h"

// The soften limited to the person's skin: twelve cheek samples give the
// mean skin colour that the shader compares each pixel with.
class ZuFaceBeautifyOptimizeMaterialEs30 : public ZuFaceBeautifyOptimizeMaterial {
public:
    static constexpr int kSamples = 12;

    explicit ZuFaceBeautifyOptimizeMaterialEs30(ZuAppMain* app) : ZuFaceBeautifyOptimizeMaterial(app) {}

    void _refreshInner() override;
    void updateFacePoint(ZuPersonTracker* tracker) override;

    const float* getSample(int i) const { return i >= 0 && i < kSamples ? samples[i] : nullptr; }

protected:
    const char* programKey() const override { return "faceBeautify_es30"; }

private:
    float samples[kSamples][2] = {};
};
