#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Deletes every node of one effect package, in every scene.
class ZuOperateDelEft : public ZuOperateBase {
public:
    ZuOperateDelEft(ZuAppMain* app, int resUID, const char* scene) : ZuOperateBase(app), resUID(resUID), scene(scene) {}
    void process(float delta) override;

private:
    int resUID;
    qz::string scene;
};
