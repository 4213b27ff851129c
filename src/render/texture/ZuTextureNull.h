#pragma once

#include "render/texture/ZuTexture.h"

// A GL name without storage; its owner fills it by other means.
class ZuTextureNull : public ZuTexture {
public:
    explicit ZuTextureNull(ZuAppMain* app) : ZuTexture(app) {}

    void apply() override;
};
