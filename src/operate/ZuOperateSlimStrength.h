#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Tells a package's face warps new strengths, by event: one value, or four.
class ZuOperateSlimStrength : public ZuOperateBase {
public:
    ZuOperateSlimStrength(ZuAppMain* app, const char* scene, int resUID, float value);
    ZuOperateSlimStrength(ZuAppMain* app, const char* scene, int resUID, float v0, float v1, float v2, float v3);
    void process(float delta) override;

private:
    qz::string scene;
    int resUID;
    float values[4] = {0.0f, 0.0f, 0.0f, 0.0f};
};
