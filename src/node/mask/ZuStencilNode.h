#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// Writes 1 into the stencil buffer wherever its mesh lies, and no colour:
// later passes that test the stencil draw only inside (or outside) it.
class ZuStencilNode : public ZuNode {
public:
    explicit ZuStencilNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;

    // Retains the new mesh, releases the old one.
    void setMesh(ZuRenderMesh* value);
    ZuRenderMesh* getMesh() const { return mesh; }
    ZuMaterial* getMaterial() const { return material; }

private:
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
};
