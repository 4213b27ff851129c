#pragma once

#include "node/morph/ZuFaceBearNode.h"

// A round bear face: cheeks out, most towards the ears.
// Squeezes the lower face like every bear shape.
class ZuFaceBearFatNode : public ZuFaceBearNode {
public:
    explicit ZuFaceBearFatNode(ZuAppMain* app);

    void zuinit() override;
};
