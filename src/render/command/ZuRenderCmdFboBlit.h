#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuFboObject;

// Copies a rectangle from one framebuffer into another (ES 3), resolving a
// multisampled source. An incomplete framebuffer skips the copy.
class ZuRenderCmdFboBlit : public ZuRenderCmd {
public:
    ZuRenderCmdFboBlit(ZuFboObject* dest, ZuFboObject* src, int width, int height)
        : destFbo(dest), srcFbo(src), width(width), height(height) {}
    void render() override;

private:
    ZuFboObject* destFbo;
    ZuFboObject* srcFbo;
    int width, height;
};
