#pragma once

#include "render/fbo/ZuFboObject.h"

// Wraps a framebuffer that the host owns: no textures, no depth of its own,
// and the engine never deletes the host's name.
class ZuOutFboObject : public ZuFboObject {
public:
    explicit ZuOutFboObject(ZuAppMain* app) : ZuFboObject(app) {}
    ~ZuOutFboObject() override;

    bool resetFboWidth(int width, int height) override { return false; }
    // Same size keeps the old id.
    bool resetOutFboWidth(int width, int height, unsigned int fboId) override;
    void disableFbo() override;
    void unbind() override;
    void swap() override {}
};
