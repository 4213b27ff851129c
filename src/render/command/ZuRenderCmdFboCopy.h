#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuFboObject;

// Copies the main colour texture of a source framebuffer, texel for texel,
// into the main colour texture of the framebuffer its scene has bound. It
// stands in for a full-screen draw that would only move texels unchanged:
// the driver copies memory where the draw would shade every pixel. The
// source is held with a reference until the command has run.
class ZuRenderCmdFboCopy : public ZuRenderCmd {
public:
    explicit ZuRenderCmdFboCopy(ZuFboObject* source);
    ~ZuRenderCmdFboCopy() override;
    void render() override;

private:
    ZuFboObject* source = nullptr;
};
