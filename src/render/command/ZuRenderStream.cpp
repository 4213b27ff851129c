#include "render/command/ZuRenderStream.h"

#include "render/command/ZuRenderCmd.h"

void ZuRenderStream::replay() {
    for (uint32_t i = 0; i < cmds.size(); i++) {
        cmds[i]->render();
        cmds[i]->release();
        cmds[i] = nullptr;
    }
    // Keeps the block: next frame records about as many commands again.
    cmds.set_used(0);
}

void ZuRenderStream::clear() {
    for (uint32_t i = 0; i < cmds.size(); i++)
        if (cmds[i]) cmds[i]->release();
    cmds.clear();
}
