#pragma once

#include "node/morph/ZuFaceBearNode.h"

// A bear face with a pointed chin: the chin pulls in, the cheeks push out.
// Squeezes the lower face like every bear shape.
class ZuFaceBearPointyNode : public ZuFaceBearNode {
public:
    explicit ZuFaceBearPointyNode(ZuAppMain* app);

    void zuinit() override;
};
