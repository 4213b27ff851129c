#include "render/command/ZuRenderCmdFboSwap.h"

#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderScene.h"

void ZuRenderCmdFboSwap::render() {
    if (scene && scene->curFbo) scene->curFbo->swap();
}
