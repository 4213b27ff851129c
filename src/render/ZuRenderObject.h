#pragma once

#include "basesys/ZuGBase.h"

// A long-lived object that records one-frame draw commands for a node.
// Nodes hold their main and selection render objects by reference.
class ZuRenderObject : public ZuGBase {
public:
    explicit ZuRenderObject(ZuAppMain* app) : ZuGBase(app) {}
};
