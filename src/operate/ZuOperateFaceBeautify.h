#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Tells a package's beauty nodes one new strength, by event.
class ZuOperateFaceBeautify : public ZuOperateBase {
public:
    ZuOperateFaceBeautify(ZuAppMain* app, const char* scene, int resUID, float value)
        : ZuOperateBase(app), scene(scene), resUID(resUID), value(value) {}
    void process(float delta) override;

private:
    qz::string scene;
    int resUID;
    float value;
};
