#pragma once

#include "render/texture/ZuTexture.h"

// A plain image texture: what files, internal targets and pushed data use.
class ZuTexture2D : public ZuTexture {
public:
    explicit ZuTexture2D(ZuAppMain* app) : ZuTexture(app) {}
};
