#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Adds a thumbnail node of width x height to the scene, shown on screen.
class ZuOperateIcon : public ZuOperateBase {
public:
    ZuOperateIcon(ZuAppMain* app, const char* scene, int width, int height)
        : ZuOperateBase(app), scene(scene ? scene : ""), width(width), height(height) {}
    void process(float delta) override;

private:
    qz::string scene;
    int width;
    int height;
};
