#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Shows the growing, fading copy of the picture for half a second, without
// a package.
class ZuOperateScreenExpand : public ZuOperateBase {
public:
    ZuOperateScreenExpand(ZuAppMain* app, const char* scene, int unused = 0)
        : ZuOperateBase(app), scene(scene ? scene : "") {}
    void process(float delta) override;

private:
    qz::string scene;
};
