#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes a logic scene that renders into the host's framebuffer.
class ZuOperateCreateOutLogicScene : public ZuOperateBase {
public:
    ZuOperateCreateOutLogicScene(ZuAppMain* app, const char* name, int winWidth, int winHeight, int sceneWidth,
                                 int sceneHeight, unsigned fbo, int scaleMode);
    void process(float delta) override;

private:
    qz::string name;
    int winWidth, winHeight, sceneWidth, sceneHeight;
    unsigned fbo;
    int scaleMode;
};
