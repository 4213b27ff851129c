#include "render/command/ZuRenderCmdFboBind.h"

#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderScene.h"

ZuRenderCmdFboBind::ZuRenderCmdFboBind(ZuFboObject* fbo, bool clear) : fbo(fbo), clear(clear) {
    if (fbo) fbo->retain();
}

ZuRenderCmdFboBind::~ZuRenderCmdFboBind() {
    if (fbo) fbo->release();
}

void ZuRenderCmdFboBind::render() {
    if (!scene || !fbo) return;
    fbo->prevFbo = scene->curFbo;
    scene->curFbo = fbo;
    if (clear)
        fbo->bind();
    else
        fbo->bindNoclear();
}
