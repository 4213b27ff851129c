#pragma once

#include "node/filter/ZuFilter.h"

class ZuSmallFaceWarpMaterial;

// The frame of the small-face warps: each tick the node's contour pairs
// become texture coordinates of the picture, the push grows with the face
// (eye distance, capped at 260 pixels) and the level, and one full-screen
// pass moves the contour inwards (small) or outwards (fat). Subclasses name
// the pairs, the pushes and the program. Without a present face it records
// nothing.
class ZuSmallFaceWarpNode : public ZuFilter {
public:
    static constexpr int kMaxPairs = 9;
    static constexpr float kStep = 0.005f;

    explicit ZuSmallFaceWarpNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void setSmallLevel(float level);
    void setIsSmall(bool small) { isSmall = small; }
    void setBearValue(float value) { bearValue = value; }
    // Replaced by the next update: the pushes follow the face.
    void setDeltaArray(const float* values);

    float getSmallLevel() const { return smallLevel; }
    bool getIsSmall() const { return isSmall; }
    bool isWarping() const { return warping; }
    ZuSmallFaceWarpMaterial* getMaterial() const { return material; }

protected:
    struct Recipe {
        const int* left = nullptr;
        const int* right = nullptr;
        int sidePairs = 0;
        const int* top = nullptr;
        const int* bottom = nullptr;
        int verticalPairs = 0;
        float sideMargin = 1.0f;     // in radii
        float verticalMargin = 1.5f; // in radii
        int arraySize = 0;           // 0: the program's own count
    };
    virtual ZuSmallFaceWarpMaterial* makeMaterial() = 0;
    // Pairs for the back end; sidePairs 0 when there are none.
    virtual Recipe recipe(int detectType) const = 0;
    // d: the push of one pair; b = d x bear value, for the vertical pairs.
    virtual void fillDeltas(float d, float b, float* side, float* vertical) const = 0;

private:
    bool computePairs();

    ZuSmallFaceWarpMaterial* material = nullptr;
    float smallLevel = 1.0f;
    bool isSmall = true;
    float bearValue = 1.0f;
    float deltaArray[kMaxPairs] = {};
    bool warping = false;
};
