#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Turns RGBA pixels from the host (a head picture) into a named texture that
// packages can use. The pixels are held, not copied, until the frame runs.
class ZuOperateGenHeadTexture : public ZuOperateBase {
public:
    ZuOperateGenHeadTexture(ZuAppMain* app, const char* name, int width, int height, unsigned char* pixels)
        : ZuOperateBase(app), name(name), width(width), height(height), pixels(pixels) {}
    void process(float delta) override;

private:
    qz::string name;
    int width;
    int height;
    unsigned char* pixels;
};
