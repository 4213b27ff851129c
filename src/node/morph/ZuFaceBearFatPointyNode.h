#pragma once

#include "node/morph/ZuFaceBearNode.h"

// A wide bear face with a pointed chin.
// Squeezes the lower face like every bear shape.
class ZuFaceBearFatPointyNode : public ZuFaceBearNode {
public:
    explicit ZuFaceBearFatPointyNode(ZuAppMain* app);

    void zuinit() override;
};
