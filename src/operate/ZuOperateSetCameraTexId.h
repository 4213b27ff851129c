#pragma once

#include "basesys/qzString.h"
#include "node/camera/BGType.h"
#include "operate/ZuOperateBase.h"

// Gives a scene a camera background read from a GL texture that the host
// fills, and the node that draws it into the scene.
class ZuOperateSetCameraTexId : public ZuOperateBase {
public:
    ZuOperateSetCameraTexId(ZuAppMain* app, const char* scene, int texture, PIXELFORMATE format, int width,
                            int height)
        : ZuOperateBase(app), scene(scene), texture(texture), format(format), width(width), height(height) {}
    void process(float delta) override;

protected:
    void makeBackground(const char* renderType, const char* renderName, bool setFormat);

    qz::string scene;
    int texture;
    PIXELFORMATE format;
    int width;
    int height;
};
