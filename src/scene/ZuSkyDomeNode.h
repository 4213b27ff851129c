#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;

// A textured dome around the 3D camera: the farthest thing in a 3D scene.
// It clears depth and writes its own, so 3D content recorded after it
// (nearer than the radius) draws in front of it. Its z axis points up the
// dome.
class ZuSkyDomeNode : public ZuNode {
public:
    // The dome the package key "SkyDome" asks for.
    static const int kColumns = 50;
    static const int kRows = 15;
    static constexpr float kTextureRepeat = 1.0f;
    static constexpr float kCoverage = 2.0f;
    static constexpr float kRadius = 2000.0f;

    explicit ZuSkyDomeNode(ZuAppMain* app);
    ~ZuSkyDomeNode() override;

    void zuinit() override;
    void zudestroy() override;
    void testinit() override;
    void update(float dt) override;
    void render() override;

    // Keeps the settings, retains the texture (null draws nothing) and
    // builds the mesh. Refused with a log line, leaving no mesh, for fewer
    // than 1 column or row, more vertices than 16-bit indices reach, or a
    // radius that is not a positive number.
    void generateSkyDome(ZuTexture* texture, int columns, int rows, float textureRepeat, float coverage,
                         float radius);

    int getColumns() const { return columns; }
    int getRows() const { return rows; }
    float getCoverage() const { return coverage; }
    float getRadius() const { return radius; }
    ZuTexture* getTexture() const { return texture; }
    ZuRenderMesh* getMesh() const { return mesh; }
    // Vertices (x, y, z, u, v) and triangle indices of the last build.
    const float* getVertices() const { return vertices; }
    int getVertexCount() const { return vertexCount; }
    const unsigned short* getIndices() const { return indices; }
    int getIndexCount() const { return indexCount; }

private:
    void _generateMesh();
    void releaseOwned();
    void freeArrays();

    int columns = 0;
    int rows = 0;
    float textureRepeat = 1.0f;
    float coverage = 1.0f;
    float radius = 0.0f;
    ZuTexture* texture = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
    float* vertices = nullptr;
    int vertexCount = 0;
    unsigned short* indices = nullptr;
    int indexCount = 0;
};
