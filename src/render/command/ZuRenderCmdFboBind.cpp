#include "render/command/ZuRenderCmdFboBind.h"

#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderScene.h"

void ZuRenderCmdFboBind::render() {
    if (!scene || !fbo) return;
    fbo->prevFbo = scene->curFbo;
    scene->curFbo = fbo;
    if (clear)
        fbo->bind();
    else
        fbo->bindNoclear();
}
