#pragma once

#include "basesys/qzString.h"
#include "node/filter/adjust_parameter.h"
#include "operate/ZuOperateBase.h"

// Puts a run-time curve look over a scene, from the host's 23 numbers.
class ZuOperateFilterMoon : public ZuOperateBase {
public:
    ZuOperateFilterMoon(ZuAppMain* app, const char* scene, const adjust_parameter& parameter)
        : ZuOperateBase(app), scene(scene ? scene : ""), parameter(parameter) {}
    void process(float delta) override;

private:
    qz::string scene;
    adjust_parameter parameter;
};
