#pragma once

#include "node/morph/ZuFaceBearNode.h"

// A slim bear face with a pointed chin: most points pull in.
// Squeezes the lower face like every bear shape.
class ZuFaceBearSlimPointyNode : public ZuFaceBearNode {
public:
    explicit ZuFaceBearSlimPointyNode(ZuAppMain* app);

    void zuinit() override;
};
