#pragma once

#include "basesys/ZuGBase.h"
#include "render/command/RENDERSTREAMTYPE.h"

class ZuMaterial;
class ZuRenderMesh;
class ZuRenderScene;

// The long-lived object a node keeps and pushes each frame: it makes that
// frame's commands. Mesh and material are borrowed and may be reassigned in
// every update; the node keeps them alive until the frame has replayed. One
// object may be pushed any number of times; a null scene pushes nothing.
class ZuRenderObject : public ZuGBase {
public:
    explicit ZuRenderObject(ZuAppMain* app) : ZuGBase(app) {}

    virtual void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label);

    void setMesh(ZuRenderMesh* value) { mesh = value; }
    void setMaterial(ZuMaterial* value) { material = value; }
    ZuRenderMesh* getMesh() const { return mesh; }
    ZuMaterial* getMaterial() const { return material; }

protected:
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
};
