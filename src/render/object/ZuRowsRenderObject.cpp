#include "render/object/ZuRowsRenderObject.h"

#include "render/command/ZuRenderCmdRows.h"
#include "render/command/ZuRenderScene.h"

void ZuRowsRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdRows* cmd = new ZuRenderCmdRows(mesh, material, rows);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
