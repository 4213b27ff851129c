#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes a logic scene that renders into the host's texture.
class ZuOperateCreateOutTexLogicScene : public ZuOperateBase {
public:
    ZuOperateCreateOutTexLogicScene(ZuAppMain* app, const char* name, int winWidth, int winHeight, int sceneWidth,
                                    int sceneHeight, unsigned texture);
    void process(float delta) override;

private:
    qz::string name;
    int winWidth, winHeight, sceneWidth, sceneHeight;
    unsigned texture;
};
