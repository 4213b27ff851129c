#pragma once

#include "render/command/ZuRenderCmdFboBind.h"

// Binds without clearing: the target keeps its content.
class ZuRenderCmdFboBindNoclear : public ZuRenderCmdFboBind {
public:
    explicit ZuRenderCmdFboBindNoclear(ZuFboObject* fbo) : ZuRenderCmdFboBind(fbo, false) {}
};
