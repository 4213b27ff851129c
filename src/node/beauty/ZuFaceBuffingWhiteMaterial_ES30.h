#pragma once

#include "node/beauty/ZuFaceBuffingWhiteMaterial.h"

// The smoother whose skin gate follows the person's own skin hue, sampled on
// the cheeks between the face contour and the nose wings.
class ZuFaceBuffingWhiteMaterial_ES30 : public ZuFaceBuffingWhiteMaterial {
public:
    static constexpr int kSamples = 6;

    ZuFaceBuffingWhiteMaterial_ES30(ZuAppMain* app, const char* programKey, float width, float height)
        : ZuFaceBuffingWhiteMaterial(app, programKey, width, height) {}

    void _refreshInner() override;
    void updateFacePoint(ZuPersonTracker* tracker) override;

    // Sample i as texture coordinates; i outside 0..5 gives null.
    const float* getSample(int i) const { return i >= 0 && i < kSamples ? samples[i] : nullptr; }
    bool isFaceKnown() const { return faceKnown; }

private:
    float samples[kSamples][2] = {};
    // Until a face has been seen the samples point nowhere useful; the
    // shader then gates skin by the fixed hue band instead.
    bool faceKnown = false;
};
