#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Makes the engine's off-screen context on the frame thread. An engine
// whose managers do not own a context (the host's GL) ignores it.
class ZuOpContextOffCreate : public ZuOperateBase {
public:
    ZuOpContextOffCreate(ZuAppMain* app, const char* name, int width, int height)
        : ZuOperateBase(app), name(name ? name : ""), width(width), height(height) {}
    void process(float delta) override;

private:
    qz::string name;
    int width;
    int height;
};
