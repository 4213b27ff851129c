#pragma once

#include "operate/ZuOperateSetCameraTexId.h"

// As ZuOperateSetCameraTexId (host layout BGRA), with the image drawn cut by a mask.
class ZuOperateSetSeparationCameraTexId : public ZuOperateSetCameraTexId {
public:
    ZuOperateSetSeparationCameraTexId(ZuAppMain* app, const char* scene, int texture, int width, int height)
        : ZuOperateSetCameraTexId(app, scene, texture, PF_BGRA, width, height) {}
    void process(float delta) override;
};
