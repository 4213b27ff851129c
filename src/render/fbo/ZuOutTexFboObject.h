#pragma once

#include "render/fbo/ZuFboObject.h"

// A framebuffer of our own drawing into a texture that the host owns; it has
// depth and may have a swap texture like any framebuffer. The host's texture
// name is never deleted here.
class ZuOutTexFboObject : public ZuFboObject {
public:
    explicit ZuOutTexFboObject(ZuAppMain* app) : ZuFboObject(app) {}

    bool resetOutTexFboWidth(int width, int height, unsigned int texId) override;
};
