#pragma once

#include "basesys/ZuGlobalMgr.h"

class ZuContext;

// The managers of an engine that owns its GL: one off-screen context, made
// on the frame thread at the first frame after createOffGLContext, drawn
// into by render and kept until destroy.
class ZuAsyncGlobalMgr : public ZuGlobalMgr {
public:
    explicit ZuAsyncGlobalMgr(ZuAppMain* app) : ZuGlobalMgr(app) {}

    void init() override;
    // Tears the managers down with the engine's context current on the
    // calling thread (their GL objects live in it), then the context; the
    // caller's own binding is restored afterwards.
    void destroy() override;
    // Activates the context, replays every scene, swaps.
    void render() override;

    ZuContext* getContext() const { return context; }

private:
    ZuContext* context = nullptr;
};
