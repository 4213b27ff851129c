#pragma once

#include "operate/ZuOperateSetCameraFormate.h"

// As ZuOperateSetCameraFormate, with the image drawn cut by a mask.
class ZuOperateSetSeparationCameraFormate : public ZuOperateSetCameraFormate {
public:
    ZuOperateSetSeparationCameraFormate(ZuAppMain* app, const char* scene, int hostFormat)
        : ZuOperateSetCameraFormate(app, scene, hostFormat) {}
    void process(float delta) override;
};
