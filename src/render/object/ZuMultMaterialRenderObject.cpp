#include "render/object/ZuMultMaterialRenderObject.h"

#include "render/command/ZuRenderCmdNor.h"
#include "render/command/ZuRenderScene.h"

void ZuMultMaterialRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    for (uint32_t i = 0; i < materials.size(); i++) {
        ZuRenderCmdNor* cmd = new ZuRenderCmdNor(mesh, materials[i]);
        cmd->setName(label);
        scene->pushRenderCmd(stream, cmd);
    }
}
