#pragma once

#include "node/morph/ZuFaceMorphNode.h"

// A square jaw: the jaw corners (third point from the chin) push far out.
// The host strength 0..1 sets the push strength 0..10 (after the first
// frame, which starts at 3).
class ZuFaceSquareNode : public ZuFaceMorphNode {
public:
    explicit ZuFaceSquareNode(ZuAppMain* app);

    void zuinit() override;
    void setParameter(float value, float* deltaX, float* deltaY) override;
};
