#pragma once

#include "basesys/qzArray.h"
#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMeshDvid;

// A full-screen grid of small triangles over the picture, for effects that
// bend the screen by moving its points. The node only builds the grid (its
// own vertices, so that each can move alone); whoever uses it draws it.
class ZuScreenAnimateNode : public ZuNode {
public:
    explicit ZuScreenAnimateNode(ZuAppMain* app, int gridWidth = 32, int gridHeight = 32);

    void zuinit() override;
    void zudestroy() override;

    int getGridWidth() const { return gridWidth; }
    int getGridHeight() const { return gridHeight; }
    int getIndexCount() const { return indexCount; }
    const qz::array<float>& getPositions() const { return positions; }
    const qz::array<float>& getTexcoords() const { return texcoords; }
    ZuRenderMeshDvid* getMesh() const { return mesh; }
    ZuMaterial* getMaterial() const { return material; }

private:
    void doRenderMeshInit();

    int gridWidth;
    int gridHeight;
    int indexCount = 0;
    qz::array<float> positions;
    qz::array<float> texcoords;
    ZuMaterial* material = nullptr;
    ZuRenderMeshDvid* mesh = nullptr;
};
