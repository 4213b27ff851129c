#pragma once

#include "render/fbo/ZuFboBeginRenderObject.h"

// Opens a framebuffer keeping what it already holds.
class ZuFboBeginNoclearRenderObject : public ZuFboBeginRenderObject {
public:
    explicit ZuFboBeginNoclearRenderObject(ZuAppMain* app) : ZuFboBeginRenderObject(app) {}

protected:
    bool clearsOnBind() const override { return false; }
};
