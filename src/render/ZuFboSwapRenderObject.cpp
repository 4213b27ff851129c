#include "render/ZuFboSwapRenderObject.h"

#include "render/ZuRenderCmdFboSwap.h"
#include "render/ZuRenderScene.h"

void ZuFboSwapRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboSwap* cmd = new ZuRenderCmdFboSwap();
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
