#pragma once

#include "render/material/ZuGMaterial.h"

// Draws a head picture through its mask with its frame laid over. The
// shader is told which of the two optional pictures are there, so that a
// package without a mask or frame still shows the head.
class ZuTexHeadMaterial : public ZuGMaterial {
public:
    explicit ZuTexHeadMaterial(ZuAppMain* app) : ZuGMaterial(app, "texHead") {}
    void _refreshInner() override;
};
