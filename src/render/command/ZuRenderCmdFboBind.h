#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuFboObject;

// Binds a framebuffer and pushes it on the scene's framebuffer stack (the
// stack lives in the framebuffers' prevFbo links). The clearing form wipes
// the target; the other keeps what it holds. Holds the framebuffer until it
// has replayed: the pool frees unheld framebuffers before the frame replays.
class ZuRenderCmdFboBind : public ZuRenderCmd {
public:
    explicit ZuRenderCmdFboBind(ZuFboObject* fbo, bool clear = true);
    ~ZuRenderCmdFboBind() override;
    void render() override;

protected:
    ZuFboObject* fbo;
    bool clear;
};
