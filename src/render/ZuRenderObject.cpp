#include "render/ZuRenderObject.h"

#include "render/ZuRenderCmdNor.h"
#include "render/ZuRenderScene.h"

void ZuRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdNor* cmd = new ZuRenderCmdNor(mesh, material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
