#pragma once

#include "render/command/ZuRenderCmd.h"

// Pops the scene's framebuffer stack: the enclosing target is bound again
// (cleared when clear is true), or the window with its full viewport.
class ZuRenderCmdFboUnbind : public ZuRenderCmd {
public:
    explicit ZuRenderCmdFboUnbind(bool clear = true) : clear(clear) {}
    void render() override;

private:
    bool clear;
};
