#include "render/object/ZuPickColorRenderObject.h"

#include "render/command/ZuRenderCmdPickColor.h"
#include "render/command/ZuRenderScene.h"

void ZuPickColorRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdPickColor* cmd = new ZuRenderCmdPickColor(app, x, y, nodeName.c_str());
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
    x = 0;
    y = 0;
}
