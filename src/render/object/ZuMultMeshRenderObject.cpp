#include "render/object/ZuMultMeshRenderObject.h"

#include "render/command/ZuRenderCmdSpe.h"
#include "render/command/ZuRenderScene.h"

void ZuMultMeshRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    for (uint32_t i = 0; i < meshes.size(); i++) {
        ZuRenderCmdSpe* cmd = new ZuRenderCmdSpe();
        cmd->setMesh(meshes[i]);
        cmd->setMaterial(material);
        cmd->setName(label);
        scene->pushRenderCmd(stream, cmd);
    }
}
