#pragma once

#include "basesys/qzArray.h"
#include "render/object/ZuRenderObject.h"

// Several meshes drawn with one material. Its commands hold references, so
// the meshes may be replaced before the frame replays.
class ZuMultMeshRenderObject : public ZuRenderObject {
public:
    explicit ZuMultMeshRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void addMesh(ZuRenderMesh* value) { meshes.push_back(value); }
    void clearMeshes() { meshes.clear(); }
    // Kept for callers of the older interface; does nothing.
    void pushMesh(ZuRenderMesh*) {}

private:
    qz::array<ZuRenderMesh*> meshes;
};
