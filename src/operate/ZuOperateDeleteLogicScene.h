#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Deletes every node of a scene's tree, then the scene: no node outlives it.
class ZuOperateDeleteLogicScene : public ZuOperateBase {
public:
    ZuOperateDeleteLogicScene(ZuAppMain* app, const char* name) : ZuOperateBase(app), name(name) {}
    void process(float delta) override;

private:
    qz::string name;
};
