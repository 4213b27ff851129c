#include "logicsys/Animate2D/ZuScreenAnimateNode.h"

#include "platform/ZuLog.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMeshDvid.h"

#include <GLES2/gl2.h>

ZuScreenAnimateNode::ZuScreenAnimateNode(ZuAppMain* app, int width, int height)
    : ZuNode(app), gridWidth(width), gridHeight(height) {
    setType("ZuScreenAnimateNode");
}

void ZuScreenAnimateNode::zuinit() {
    material = new ZuMaterial(app, "screennor");
    doRenderMeshInit();
}

void ZuScreenAnimateNode::zudestroy() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuScreenAnimateNode::doRenderMeshInit() {
    // 16-bit indices: at most 65536 vertices, six a cell.
    if (gridWidth <= 0 || gridHeight <= 0 || gridWidth * gridHeight > 65536 / 6) {
        QZLOGW("screen animate node %s: grid %d x %d refused", m_name.c_str(), gridWidth, gridHeight);
        return;
    }
    indexCount = gridWidth * gridHeight * 2 * 3;
    positions.clear();
    texcoords.clear();
    qz::array<uint16_t> indices;
    auto put = [&](int gx, int gy) {
        const float x = -1.0f + 2.0f * gx / gridWidth;
        const float y = -1.0f + 2.0f * gy / gridHeight;
        positions.push_back(x);
        positions.push_back(y);
        texcoords.push_back((x + 1.0f) * 0.5f);
        texcoords.push_back((y + 1.0f) * 0.5f);
        indices.push_back(static_cast<uint16_t>(indices.size()));
    };
    // Row by row from the bottom; every triangle has vertices of its own.
    for (int gy = 0; gy < gridHeight; ++gy)
        for (int gx = 0; gx < gridWidth; ++gx) {
            put(gx, gy), put(gx + 1, gy), put(gx, gy + 1);
            put(gx, gy + 1), put(gx + 1, gy), put(gx + 1, gy + 1);
        }
    mesh = new ZuRenderMeshDvid();
    mesh->setVertexType(VF_POS2 | VF_TEX0);
    mesh->setVertexPoolType(GL_STREAM_DRAW);
    mesh->setIndexPoolType(GL_STATIC_DRAW);
    mesh->setVertexNum(indexCount);
    mesh->setVertex2Data(&positions[0], static_cast<int>(positions.size() * sizeof(float)));
    mesh->setTexcoord0Data(&texcoords[0], static_cast<int>(texcoords.size() * sizeof(float)));
    mesh->setIndexData(&indices[0], static_cast<int>(indices.size() * sizeof(uint16_t)), indexCount);
}
