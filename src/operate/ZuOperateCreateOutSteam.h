#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"
#include "render/OUTSTEAMTYPE.h"

class ZuDataTransNode;

// Adds the scene's CPU output, named scene + "_dataout", at the camera's size.
class ZuOperateCreateOutSteam : public ZuOperateBase {
public:
    ZuOperateCreateOutSteam(ZuAppMain* app, const char* scene, OUTSTEAMTYPE format, bool mirror, bool invert)
        : ZuOperateBase(app), scene(scene ? scene : ""), format(format), mirror(mirror), invert(invert) {}
    void process(float delta) override;

protected:
    // Creates, sizes and hangs the node; null when the scene is gone.
    // Non-positive sizes take the camera's.
    ZuDataTransNode* createTransNode(const char* nodeName, int width, int height);

    qz::string scene;
    OUTSTEAMTYPE format;
    bool mirror;
    bool invert;
};
