#pragma once

#include "node/morph/ZuFaceMorphNode.h"

// The bear face: cheeks pushed out near the chin, and the lower face
// squeezed up towards the eyes. The host strength 0..1 is how much of the
// lower face stays (1: none squeezed, the default 0.85); the push strength
// stays 3.
class ZuFaceBearNode : public ZuFaceMorphNode {
public:
    explicit ZuFaceBearNode(ZuAppMain* app);

    void zuinit() override;
    void setParameter(float value, float* deltaX, float* deltaY) override;
    void reset() override;

    float getBearRatio() const { return bearRatio; }

protected:
    void doBear() override;

private:
    // The squeeze of an upright face (rows) or one on its side (columns);
    // false when the face is neither or its parts lie in no usable order.
    bool squeezeUpright();
    bool squeezeOnSide();

    float bearRatio = 0.85f;
};
