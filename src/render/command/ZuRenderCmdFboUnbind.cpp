#include "render/command/ZuRenderCmdFboUnbind.h"

#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderScene.h"

#include <GLES2/gl2.h>

void ZuRenderCmdFboUnbind::render() {
    if (!scene || !scene->curFbo) return;
    ZuFboObject* current = scene->curFbo;
    ZuFboObject* prev = current->prevFbo;
    current->unbind();
    current->prevFbo = nullptr;
    if (prev) {
        if (clear)
            prev->bind();
        else
            prev->bindNoclear();
    }
    scene->curFbo = prev;
    if (!prev) glViewport(0, 0, scene->getWinWidth(), scene->getWinHeight());
}
