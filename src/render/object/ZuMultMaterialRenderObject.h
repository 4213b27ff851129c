#pragma once

#include "basesys/qzArray.h"
#include "render/object/ZuRenderObject.h"

// One mesh drawn once per material, in the order the materials were added.
class ZuMultMaterialRenderObject : public ZuRenderObject {
public:
    explicit ZuMultMaterialRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void pushMaterial(ZuMaterial* value) { materials.push_back(value); }
    void clearMaterials() { materials.clear(); }

private:
    qz::array<ZuMaterial*> materials;
};
