#include "render/object/ZuFboCopyRenderObject.h"

#include "render/command/ZuRenderCmdFboCopy.h"
#include "render/command/ZuRenderScene.h"

void ZuFboCopyRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene || !source) return;
    ZuRenderCmdFboCopy* cmd = new ZuRenderCmdFboCopy(source);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
