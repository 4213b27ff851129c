#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Small (or fat) face by eight contour pairs, jaw strongest: the pairs near
// the ears push least. Each back end has its own pairs.
class ZuSmallFaceNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuSmallFaceNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuSmallFaceNode"); }
    // Morph type 3 (a bear-like item) softens the three upper pairs further.
    void setMorphType(int type) { morphType = type; }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;

private:
    int morphType = 0;
};
