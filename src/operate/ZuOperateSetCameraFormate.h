#pragma once

#include "basesys/qzString.h"
#include "node/camera/BGType.h"
#include "operate/ZuOperateBase.h"

// Gives a scene a camera background for frames in the host's format: the
// conversion node and the node that draws its image into the scene. Setting
// the format again replaces both.
class ZuOperateSetCameraFormate : public ZuOperateBase {
public:
    ZuOperateSetCameraFormate(ZuAppMain* app, const char* scene, int hostFormat)
        : ZuOperateBase(app), scene(scene), hostFormat(hostFormat) {}
    void process(float delta) override;

    // Host codes 0 to 5 (NV21, NV12, YV12, I420, RGBA, BGRA); others give none.
    static int cameraFormatOf(int hostFormat);
    static BGType backgroundTypeOf(int hostFormat);

protected:
    // Everything but the kind and name of the node that draws the image.
    void makeBackground(const char* renderType, const char* renderName);

    qz::string scene;
    int hostFormat;
};
