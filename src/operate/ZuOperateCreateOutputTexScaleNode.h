#pragma once

#include "basesys/qzString.h"
#include "node/camera/BGType.h"
#include "operate/ZuOperateBase.h"

// Adds a node that copies the scene, scaled to width x height, into an own
// texture, and tells listeners (event 46) that it exists.
class ZuOperateCreateOutputTexScaleNode : public ZuOperateBase {
public:
    ZuOperateCreateOutputTexScaleNode(ZuAppMain* app, const char* scene, const char* nodeName, PIXELFORMATE format,
                                      bool mirror, bool invert, int width, int height)
        : ZuOperateBase(app), scene(scene ? scene : ""), nodeName(nodeName ? nodeName : ""), format(format),
          mirror(mirror), invert(invert), width(width), height(height) {}
    void process(float delta) override;

private:
    qz::string scene;
    qz::string nodeName;
    PIXELFORMATE format;
    bool mirror;
    bool invert;
    int width;
    int height;
};
