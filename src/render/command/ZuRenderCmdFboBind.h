#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuFboObject;

// Binds a framebuffer and pushes it on the scene's framebuffer stack (the
// stack lives in the framebuffers' prevFbo links). The clearing form wipes
// the target; the other keeps what it holds.
class ZuRenderCmdFboBind : public ZuRenderCmd {
public:
    explicit ZuRenderCmdFboBind(ZuFboObject* fbo, bool clear = true) : fbo(fbo), clear(clear) {}
    void render() override;

protected:
    ZuFboObject* fbo;
    bool clear;
};
