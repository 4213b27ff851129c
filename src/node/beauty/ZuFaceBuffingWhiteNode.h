#pragma once

#include "node/filter/ZuFilter.h"

class ZuFaceBuffingWhiteMaterial;

// Skin smoothing and whitening over the whole picture, the beauty pass that
// effect packages create. Its quality (shader and sample count) comes from
// the engine configuration when the node is made; it draws whether or not a
// face is present, since whitening applies everywhere.
class ZuFaceBuffingWhiteNode : public ZuFilter {
public:
    explicit ZuFaceBuffingWhiteNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    // Kind 45 for this node's resource id and scene sets smooth and white.
    bool procEvent(ZuEvent* event) override;

    void updateSmooth(float value);
    void updateWhite(float value);

    ZuFaceBuffingWhiteMaterial* getMaterial() const { return material; }
    // The quality actually in use, after the ES 2 fallback.
    int getQualityType() const { return qualityType; }

    // The quality a configured type runs at on a context of glVersion:
    // the face-aware types need ES 3 and fall back to the best ES 2 one.
    static int effectiveType(int configuredType, int glVersion);

private:
    ZuFaceBuffingWhiteMaterial* material = nullptr;
    int qualityType = 0;
};
