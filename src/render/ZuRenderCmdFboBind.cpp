#include "render/ZuRenderCmdFboBind.h"

#include "render/ZuFboObject.h"
#include "render/ZuRenderScene.h"

void ZuRenderCmdFboBind::render() {
    if (!scene || !fbo) return;
    fbo->prevFbo = scene->curFbo;
    scene->curFbo = fbo;
    if (clear)
        fbo->bind();
    else
        fbo->bindNoclear();
}
