#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Tells a package's beauty nodes new smoothing and whitening, by event.
class ZuOperateFaceBuffingWhite : public ZuOperateBase {
public:
    ZuOperateFaceBuffingWhite(ZuAppMain* app, const char* scene, int resUID, float smooth, float white)
        : ZuOperateBase(app), scene(scene), resUID(resUID), smooth(smooth), white(white) {}
    void process(float delta) override;

private:
    qz::string scene;
    int resUID;
    float smooth;
    float white;
};
