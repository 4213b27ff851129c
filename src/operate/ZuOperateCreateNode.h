#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes a node by type name and hangs it under the scene.
class ZuOperateCreateNode : public ZuOperateBase {
public:
    ZuOperateCreateNode(ZuAppMain* app, const char* name, const char* type, const char* scene)
        : ZuOperateBase(app), name(name), type(type), scene(scene) {}
    void process(float delta) override;

private:
    qz::string name;
    qz::string type;
    qz::string scene;
};
