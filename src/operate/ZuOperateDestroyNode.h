#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Deletes every node of a name (the scene takes no part).
class ZuOperateDestroyNode : public ZuOperateBase {
public:
    ZuOperateDestroyNode(ZuAppMain* app, const char* scene, const char* name)
        : ZuOperateBase(app), scene(scene), name(name) {}
    void process(float delta) override;

private:
    qz::string scene;
    qz::string name;
};
