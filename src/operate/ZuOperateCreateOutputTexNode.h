#pragma once

#include "basesys/qzString.h"
#include "node/camera/BGType.h"
#include "operate/ZuOperateBase.h"

// Adds a node that copies the scene into the host's texture at the camera's size.
class ZuOperateCreateOutputTexNode : public ZuOperateBase {
public:
    ZuOperateCreateOutputTexNode(ZuAppMain* app, const char* scene, const char* nodeName, unsigned texId,
                                 PIXELFORMATE format, bool mirror, bool invert)
        : ZuOperateBase(app), scene(scene ? scene : ""), nodeName(nodeName ? nodeName : ""), texId(texId),
          format(format), mirror(mirror), invert(invert) {}
    void process(float delta) override;

private:
    qz::string scene;
    qz::string nodeName;
    unsigned texId;
    PIXELFORMATE format;
    bool mirror;
    bool invert;
};
