#pragma once

#include "node/morph/ZuFaceMorphNode.h"

// A fuller face: every contour point pushes outwards, over a wide reach.
// The host strength 0..1 sets the push strength 0..10 (after the first
// frame, which starts at 3).
class ZuFaceFatNode : public ZuFaceMorphNode {
public:
    explicit ZuFaceFatNode(ZuAppMain* app);

    void zuinit() override;
    void setParameter(float value, float* deltaX, float* deltaY) override;
};
