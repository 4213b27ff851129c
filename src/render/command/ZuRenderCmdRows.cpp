#include "render/command/ZuRenderCmdRows.h"

#include <GLES2/gl2.h>

void ZuRenderCmdRows::render() {
    if (rows <= 0) return;
    // Wider than any target: only the row count limits the draw.
    glScissor(0, 0, 1 << 15, rows);
    glEnable(GL_SCISSOR_TEST);
    ZuRenderCmdNor::render();
    glDisable(GL_SCISSOR_TEST);
}
