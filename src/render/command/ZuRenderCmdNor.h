#pragma once

#include "render/command/ZuRenderCmd.h"

class ZuMaterial;
class ZuRenderMesh;

// Draws a mesh with a material. Both are borrowed: their owner keeps them
// alive until the frame has replayed. A material that refuses (no program,
// a texture still loading) keeps the draw out of this frame.
class ZuRenderCmdNor : public ZuRenderCmd {
public:
    ZuRenderCmdNor() = default;
    ZuRenderCmdNor(ZuRenderMesh* mesh, ZuMaterial* material) : mesh(mesh), material(material) {}
    void render() override;

    virtual void setMesh(ZuRenderMesh* value) { mesh = value; }
    virtual void setMaterial(ZuMaterial* value) { material = value; }
    ZuRenderMesh* getMesh() const { return mesh; }
    ZuMaterial* getMaterial() const { return material; }

protected:
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
};
