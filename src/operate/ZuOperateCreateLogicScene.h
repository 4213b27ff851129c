#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes a logic scene with its own target (or finds the existing one) and
// sets how it meets the window.
class ZuOperateCreateLogicScene : public ZuOperateBase {
public:
    ZuOperateCreateLogicScene(ZuAppMain* app, const char* name, int winWidth, int winHeight, int sceneWidth,
                              int sceneHeight, int scaleMode);
    void process(float delta) override;

private:
    qz::string name;
    int winWidth, winHeight, sceneWidth, sceneHeight, scaleMode;
};
