#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Points a host-texture background at another texture name.
class ZuOperateUpdateBGTexture : public ZuOperateBase {
public:
    ZuOperateUpdateBGTexture(ZuAppMain* app, const char* node, int texture, int width, int height)
        : ZuOperateBase(app), node(node), texture(texture), width(width), height(height) {}
    void process(float delta) override;

private:
    qz::string node;
    int texture;
    int width;
    int height;
};
