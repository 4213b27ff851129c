#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Tells the nodes of a package a new strength, by event.
class ZuOperateIntensity : public ZuOperateBase {
public:
    ZuOperateIntensity(ZuAppMain* app, const char* scene, int resUID, float value)
        : ZuOperateBase(app), scene(scene), resUID(resUID), value(value) {}
    void process(float delta) override;

private:
    qz::string scene;
    int resUID;
    float value;
};
