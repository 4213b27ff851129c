#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Drops the engine's off-screen surface and context on the frame thread;
// frames draw nothing until another is made.
class ZuOpContextOffDestroy : public ZuOperateBase {
public:
    ZuOpContextOffDestroy(ZuAppMain* app, const char* name) : ZuOperateBase(app), name(name ? name : "") {}
    void process(float delta) override;

private:
    qz::string name;
};
