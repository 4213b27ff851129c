#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes the engine's one sensor-driven camera node, "CameraControl", for the
// first effect that asks; later requests leave it as it is.
class ZuOperateCameraControl : public ZuOperateBase {
public:
    ZuOperateCameraControl(ZuAppMain* app, bool flag, int resUID, const char* scene)
        : ZuOperateBase(app), flag(flag), resUID(resUID), scene(scene) {}
    void process(float delta) override;

private:
    bool flag;
    int resUID;
    qz::string scene;
};
