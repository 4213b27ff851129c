#include "render/object/ZuMultMeshMatRenderObject.h"

#include "render/command/ZuRenderCmdNor.h"
#include "render/command/ZuRenderScene.h"

void ZuMultMeshMatRenderObject::addRenderObj(ZuRenderMesh* pairMesh, ZuMaterial* pairMaterial) {
    meshes.push_back(pairMesh);
    materials.push_back(pairMaterial);
}

void ZuMultMeshMatRenderObject::clearRenderObj() {
    meshes.clear();
    materials.clear();
}

void ZuMultMeshMatRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    for (uint32_t i = 0; i < meshes.size(); i++) {
        // A mesh without a material of its own makes a command that draws nothing.
        ZuRenderCmdNor* cmd = new ZuRenderCmdNor(meshes[i], i < materials.size() ? materials[i] : nullptr);
        cmd->setName(label);
        scene->pushRenderCmd(stream, cmd);
    }
}
