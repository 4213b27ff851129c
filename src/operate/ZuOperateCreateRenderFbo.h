#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Adds the node that copies the finished scene into the host's framebuffer.
class ZuOperateCreateRenderFbo : public ZuOperateBase {
public:
    ZuOperateCreateRenderFbo(ZuAppMain* app, const char* scene, const char* type, const char* name, int fbo)
        : ZuOperateBase(app), scene(scene), type(type), name(name), fbo(fbo) {}
    void process(float delta) override;

private:
    qz::string scene;
    qz::string type;
    qz::string name;
    int fbo;
};
