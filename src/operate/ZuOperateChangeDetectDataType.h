#pragma once

#include "data/DETECTTYPE.h"
#include "operate/ZuOperateBase.h"

// Switches the engine to another tracker back end on the render thread:
// configuration, detector, then the generator that holds parsed faces.
class ZuOperateChangeDetectDataType : public ZuOperateBase {
public:
    ZuOperateChangeDetectDataType(ZuAppMain* app, DETECTTYPE type) : ZuOperateBase(app), type(type) {}
    void process(float delta) override;

private:
    DETECTTYPE type;
};
