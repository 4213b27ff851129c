#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuFboObject;

// Copies a rectangle from one framebuffer into another (ES 3), resolving a
// multisampled source. An incomplete framebuffer skips the copy. Holds both
// framebuffers until it has replayed, as the bind command does.
class ZuRenderCmdFboBlit : public ZuRenderCmd {
public:
    ZuRenderCmdFboBlit(ZuFboObject* dest, ZuFboObject* src, int width, int height);
    ~ZuRenderCmdFboBlit() override;
    void render() override;

private:
    ZuFboObject* destFbo;
    ZuFboObject* srcFbo;
    int width, height;
};
