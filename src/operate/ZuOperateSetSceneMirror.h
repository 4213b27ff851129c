#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Mirrors (or not) how a scene's picture reaches the window.
class ZuOperateSetSceneMirror : public ZuOperateBase {
public:
    ZuOperateSetSceneMirror(ZuAppMain* app, const char* name, bool mirror)
        : ZuOperateBase(app), name(name), mirror(mirror) {}
    void process(float delta) override;

private:
    qz::string name;
    bool mirror;
};
