#pragma once

#include "basesys/qzArray.h"
#include "render/object/ZuRenderObject.h"

// Mesh and material pairs, drawn in the order they were added.
class ZuMultMeshMatRenderObject : public ZuRenderObject {
public:
    explicit ZuMultMeshMatRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void addRenderObj(ZuRenderMesh* pairMesh, ZuMaterial* pairMaterial);
    void clearRenderObj();

private:
    qz::array<ZuRenderMesh*> meshes;
    qz::array<ZuMaterial*> materials;
};
