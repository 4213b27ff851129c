#include "render/ZuFboEndRenderObject.h"

#include "render/ZuRenderCmdFboUnbind.h"
#include "render/ZuRenderScene.h"

void ZuFboEndRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboUnbind* cmd = new ZuRenderCmdFboUnbind(clear);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
