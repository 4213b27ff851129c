#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Creates a filter node of a registered type in a scene; an outer filter
// gets the tone-curve material.
class ZuOperateCreateFilter : public ZuOperateBase {
public:
    ZuOperateCreateFilter(ZuAppMain* app, const char* name, const char* type, const char* scene)
        : ZuOperateBase(app), name(name ? name : ""), type(type ? type : ""), scene(scene ? scene : "") {}
    void process(float delta) override;

private:
    qz::string name;
    qz::string type;
    qz::string scene;
};
