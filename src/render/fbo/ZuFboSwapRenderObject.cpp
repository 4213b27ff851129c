#include "render/fbo/ZuFboSwapRenderObject.h"

#include "render/command/ZuRenderCmdFboSwap.h"
#include "render/command/ZuRenderScene.h"

void ZuFboSwapRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboSwap* cmd = new ZuRenderCmdFboSwap();
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
