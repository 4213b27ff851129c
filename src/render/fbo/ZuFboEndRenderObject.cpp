#include "render/fbo/ZuFboEndRenderObject.h"

#include "render/command/ZuRenderCmdFboUnbind.h"
#include "render/command/ZuRenderScene.h"

void ZuFboEndRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboUnbind* cmd = new ZuRenderCmdFboUnbind(clear);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
