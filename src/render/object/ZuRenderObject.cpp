#include "render/object/ZuRenderObject.h"

#include "render/command/ZuRenderCmdNor.h"
#include "render/command/ZuRenderScene.h"

void ZuRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdNor* cmd = new ZuRenderCmdNor(mesh, material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
