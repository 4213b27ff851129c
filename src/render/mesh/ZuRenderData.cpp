#include "render/mesh/ZuRenderData.h"

#include "platform/ZuLog.h"
#include "render/mesh/ZuRenderMesh.h"

#include <cstdint>
#include <vector>

namespace {

// One vertex of the screen rectangle format 0x1101 (20 bytes).
struct ScreenVertex {
    float x, y;
    uint8_t r, g, b, a;
    float u, v;
};
static_assert(sizeof(ScreenVertex) == 20, "screen vertex must match format 0x1101");

const uint16_t kRectIndices[6] = {0, 1, 2, 2, 1, 3};
const float kFullTex[8] = {0, 0, 1, 0, 0, 1, 1, 1};

// Corners in the order bottom-left, bottom-right, top-left, top-right.
ZuRenderMesh* makeRect(float x0, float x1, float y0, float y1, const float* tex) {
    const float xs[4] = {x0, x1, x0, x1};
    const float ys[4] = {y0, y0, y1, y1};
    ScreenVertex vertices[4];
    for (int i = 0; i < 4; ++i)
        vertices[i] = {xs[i], ys[i], 255, 255, 255, 255, tex[2 * i], tex[2 * i + 1]};
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexNum(4);
    mesh->setVertexData(vertices, sizeof vertices);
    mesh->setIndexData(kRectIndices, sizeof kRectIndices, 6);
    return mesh;
}

} // namespace

ZuRenderData::~ZuRenderData() { destroy(); }

void ZuRenderData::init() {
    destroy();
    static const float kRot90[8] = {0, 1, 0, 0, 1, 1, 1, 0};
    static const float kRot180[8] = {1, 1, 0, 1, 1, 0, 0, 0};
    static const float kRot270[8] = {1, 0, 1, 1, 0, 0, 0, 1};
    meshFull = makeRect(-1, 1, -1, 1, kFullTex);
    meshRot90 = makeRect(-1, 1, -1, 1, kRot90);
    meshRot180 = makeRect(-1, 1, -1, 1, kRot180);
    meshRot270 = makeRect(-1, 1, -1, 1, kRot270);
    meshTopLeft = makeRect(-1, 0, 0, 1, kFullTex);
    meshTopRight = makeRect(0, 1, 0, 1, kFullTex);
    meshBottomLeft = makeRect(-1, 0, -1, 0, kFullTex);
    meshBottomRight = makeRect(0, 1, -1, 0, kFullTex);
}

void ZuRenderData::destroy() {
    qzSafeRelease(meshFull);
    qzSafeRelease(meshRot90);
    qzSafeRelease(meshRot180);
    qzSafeRelease(meshRot270);
    qzSafeRelease(meshTopLeft);
    qzSafeRelease(meshTopRight);
    qzSafeRelease(meshBottomLeft);
    qzSafeRelease(meshBottomRight);
}

ZuRenderMesh* ZuRenderData::meshFollowingAngle(int angle) const {
    switch (angle) {
    case 0: return meshFull;
    case 90: return meshRot90;
    case 180: return meshRot180;
    case 270: return meshRot270;
    default: return nullptr;
    }
}

ZuRenderMesh* ZuRenderData::meshUndoingAngle(int angle) const {
    switch (angle) {
    case 90: return meshRot270;
    case 270: return meshRot90;
    default: return meshFollowingAngle(angle);
    }
}

ZuRenderMesh* ZuRenderData::createRectMesh(float w, float h) {
    return makeRect(-w / 2, w / 2, -h / 2, h / 2, kFullTex);
}

ZuRenderMesh* ZuRenderData::createRectMesh(float halfW, float halfH, int cols, int rows) {
    if (cols < 2 || rows < 2 || static_cast<long long>(cols) * rows > 65536) {
        QZLOGW("ZuRenderData::createRectMesh: grid %d x %d refused (needs 2 to 65536 vertices, "
               "at least 2 a side)", cols, rows);
        return nullptr;
    }
    std::vector<ScreenVertex> vertices;
    vertices.reserve(static_cast<size_t>(cols) * rows);
    const float stepX = 2.0f * halfW / static_cast<float>(cols - 1);
    const float stepY = 2.0f * halfH / static_cast<float>(rows - 1);
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) {
            float x = stepX * static_cast<float>(i) - halfW;
            float y = stepY * static_cast<float>(j) - halfH;
            // Texture coordinates assume half sizes of 1, the screen grids.
            vertices.push_back({x, y, 255, 255, 255, 255, x * 0.5f + 0.5f, y * 0.5f + 0.5f});
        }
    }
    std::vector<uint16_t> indices;
    indices.reserve(static_cast<size_t>(cols - 1) * (rows - 1) * 6);
    for (int j = 0; j + 1 < rows; ++j) {
        for (int i = 0; i + 1 < cols; ++i) {
            int a = j * cols + i;
            const int cell[6] = {a, a + 1, a + cols, a + cols, a + 1, a + cols + 1};
            for (int k : cell) indices.push_back(static_cast<uint16_t>(k));
        }
    }
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexNum(cols * rows);
    mesh->setVertexData(vertices.data(), static_cast<int>(vertices.size() * sizeof(ScreenVertex)));
    mesh->setIndexData(indices.data(), static_cast<int>(indices.size() * sizeof(uint16_t)),
                       static_cast<int>(indices.size()));
    return mesh;
}
