#pragma once

#include "node/morph/ZuFaceBearNode.h"

// A slightly full bear face with a pointed chin.
// Squeezes the lower face like every bear shape.
class ZuFaceBearFattishPointyNode : public ZuFaceBearNode {
public:
    explicit ZuFaceBearFattishPointyNode(ZuAppMain* app);

    void zuinit() override;
};
