#include "render/ZuRenderCmdFboSwap.h"

#include "render/ZuFboObject.h"
#include "render/ZuRenderScene.h"

void ZuRenderCmdFboSwap::render() {
    if (scene && scene->curFbo) scene->curFbo->swap();
}
