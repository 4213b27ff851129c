#include "render/mesh/ZuRenderMesh.h"

#include "data/ZuDataDoubleSwap.h"
#include "data/ZuDataSwap.h"
#include "platform/ZuLog.h"

#include <GLES3/gl3.h>

#include <cstdint>

namespace {

const void* bufferOffset(unsigned offset) {
    return reinterpret_cast<const void*>(static_cast<uintptr_t>(offset));
}

// Morph target n of VF_MORPH4 and VF_MORPH_ARRAY reads this location.
const unsigned kMorphLocations[ZuRenderMesh::kMorphSlots] = {2, 5, 7, 8, 9, 10, 11, 12, 13, 14};

} // namespace

int getVertexFormateSize(VFTYPE type) {
    switch (type) {
    case 0x1: return 8;
    case 0x2: return 12;
    case 0x101: return 12;
    case 0x102: return 16;
    case 0x12: return 24;
    case 0x112: return 28;
    case 0x1001: return 16;
    case 0x1002: return 20;
    case 0x1012: return 32;
    case 0x1101: return 20;
    case 0x1102: return 24;
    case 0x1112: return 36;
    case 0x3001: return 24;
    case 0x3002: return 28;
    case 0x3012: return 40;
    case 0x3101: return 28;
    case 0x3102: return 32;
    case 0x3112: return 44;
    case 0x31012: return 64;
    case 0x41002: return 68;
    case 0xB1012: return 232; // 64 bytes of attributes, then 14 morph targets of 12
    default: return 0;
    }
}

ZuRenderMesh::ZuRenderMesh()
    : vertexPool(GL_STATIC_DRAW), indexPool(GL_STATIC_DRAW), drawMethod(GL_TRIANGLES) {}

ZuRenderMesh::~ZuRenderMesh() {
    if (vbo) glDeleteBuffers(1, &vbo);
    if (ibo) glDeleteBuffers(1, &ibo);
    delete vertexData;
    delete indexData;
}

bool ZuRenderMesh::validPool(unsigned pool) {
    return pool == GL_STREAM_DRAW || pool == GL_STATIC_DRAW || pool == GL_DYNAMIC_DRAW;
}

void ZuRenderMesh::setVertexPoolType(unsigned pool) {
    if (!validPool(pool)) {
        QZLOGW("error parameter: HaRenderMesh setVertexPoolType \n");
        return;
    }
    vertexPool = pool;
}

void ZuRenderMesh::setIndexPoolType(unsigned pool) {
    if (!validPool(pool)) {
        QZLOGW("error parameter: HaRenderMesh setIndexPoolType \n");
        return;
    }
    indexPool = pool;
}

void ZuRenderMesh::writeHalves(ZuDataDoubleSwap*& swap, int& state, const void* data, int bytes) {
    // A grown buffer that has not been uploaded yet stays "grown": the GL
    // buffer must be reallocated, not sub-updated past its end.
    if (state != 3) state = 2;
    if (swap && swap->getsize() < bytes) {
        swap->resize(bytes);
        state = 3;
    }
    if (!swap) {
        swap = new ZuDataDoubleSwap();
        swap->apply(bytes);
        swap->getCurrentData()->writeData(data, &bytes);
    }
    swap->getNextData()->writeData(data, &bytes);
}

void ZuRenderMesh::setVertexData(const void* data, int bytes) {
    if (!data || bytes <= 0) {
        QZLOGW("ZuRenderMesh::setVertexData: no data (%d bytes) refused", bytes);
        return;
    }
    writeHalves(vertexData, vertexState, data, bytes);
}

void ZuRenderMesh::setIndexData(const void* data, int bytes, int count) {
    if (!data || bytes <= 0 || count < 0) {
        QZLOGW("ZuRenderMesh::setIndexData: no data (%d bytes, %d indices) refused", bytes, count);
        return;
    }
    writeHalves(indexData, indexState, data, bytes);
    indexCount = count;
    useIndex = true;
}

void ZuRenderMesh::addEnableMorphTarget(int target) {
    if (morphCount >= kMorphSlots) return;
    enabledMorph[morphCount++] = target;
}

void ZuRenderMesh::addEnableMorphTarget(int slot, int target) {
    if (slot < 0 || slot >= kMorphSlots) return;
    enabledMorph[slot] = target;
}

void ZuRenderMesh::clearEnabledMorphTarget() {
    for (int& target : enabledMorph) target = 0;
    morphCount = 0;
}

int ZuRenderMesh::getEnabledMorphTarget(int slot) const {
    return (slot >= 0 && slot < kMorphSlots) ? enabledMorph[slot] : 0;
}

void ZuRenderMesh::uploadHalf(ZuDataDoubleSwap* swap, int& state, unsigned& buffer, int& bufferBytes,
                              unsigned target, unsigned pool) {
    if (!swap) return;
    if (state == 1) {
        glBindBuffer(target, buffer);
        return;
    }
    if (state != 2 && state != 3) return;
    swap->swap();
    ZuDataSwap* half = swap->getCurrentData();
    int bytes = half ? half->getSize() : 0;
    const void* data = half ? half->getData() : nullptr;
    if (!buffer) glGenBuffers(1, &buffer);
    glBindBuffer(target, buffer);
    if (state == 2 && bufferBytes >= bytes && bufferBytes > 0) {
        glBufferSubData(target, 0, bytes, data);
    } else {
        glBufferData(target, bytes, data, pool);
        bufferBytes = bytes;
    }
    state = 1;
}

void ZuRenderMesh::uploadIndexData() {
    bool fresh = indexState == 2 || indexState == 3;
    uploadHalf(indexData, indexState, ibo, iboBytes, GL_ELEMENT_ARRAY_BUFFER, indexPool);
    if (fresh && indexData && indexData->getCurrentData()) {
        // The largest index decides whether a draw stays inside the vertices.
        ZuDataSwap* half = indexData->getCurrentData();
        const uint16_t* idx = reinterpret_cast<const uint16_t*>(half->getData());
        int n = half->getSize() / 2;
        if (n > indexCount) n = indexCount; // a stale tail is never drawn
        maxIndex = -1;
        for (int i = 0; idx && i < n; ++i)
            if (idx[i] > maxIndex) maxIndex = idx[i];
    }
}

void ZuRenderMesh::enableAttribute(unsigned location, int components, unsigned glType, int stride,
                                   unsigned offset) {
    GLint maxAttribs = 0;
    glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &maxAttribs);
    if (static_cast<GLint>(location) >= maxAttribs) return;
    glVertexAttribPointer(location, components, glType, GL_FALSE, stride, bufferOffset(offset));
    glEnableVertexAttribArray(location);
    enabledAttribs |= 1u << location;
}

void ZuRenderMesh::disableAttributes() {
    for (unsigned location = 0; enabledAttribs; ++location) {
        if (enabledAttribs & (1u << location)) {
            glDisableVertexAttribArray(location);
            enabledAttribs &= ~(1u << location);
        }
    }
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void ZuRenderMesh::uploadData() {
    drawableVertices = 0;
    uploadIndexData();
    uploadHalf(vertexData, vertexState, vbo, vboBytes, GL_ARRAY_BUFFER, vertexPool);
    if (!vertexData || !vbo) return; // no buffer: no attribute, never a client pointer

    const int stride = getVertexFormateSize(vertexType);
    if (stride <= 0) {
        warnOnce("vertex format has no known stride; mesh not drawn");
        return;
    }
    drawableVertices = vboBytes / stride;

    unsigned offset = 0;
    // An attribute that would reach past the vertex is skipped: its bytes
    // are not in the buffer.
    auto put = [&](unsigned location, int components, unsigned glType, unsigned at, int bytes) {
        if (static_cast<int>(at) + bytes > stride) return;
        enableAttribute(location, components, glType, stride, at);
    };
    if (vertexType & VF_POS2) { put(0, 2, GL_FLOAT, offset, 8); offset += 8; }
    if (vertexType & VF_POS3) { put(0, 3, GL_FLOAT, offset, 12); offset += 12; }
    if (vertexType & VF_NORMAL) { put(1, 3, GL_FLOAT, offset, 12); offset += 12; }
    if (vertexType & VF_COLOR0) { put(4, 4, GL_UNSIGNED_BYTE, offset, 4); offset += 4; }
    if (vertexType & VF_TEX0) { put(6, 2, GL_FLOAT, offset, 8); offset += 8; }
    if (vertexType & VF_TEX1) { put(7, 2, GL_FLOAT, offset, 8); offset += 8; }
    if (vertexType & VF_MORPH4) {
        for (int n = 0; n < 4; ++n) put(kMorphLocations[n], 3, GL_FLOAT, offset + 12 * n, 12);
        offset += 48;
    }
    if (vertexType & VF_BONE_ID) { put(3, 4, GL_FLOAT, offset, 16); offset += 16; }
    if (vertexType & VF_BONE_WEIGHT) { put(4, 4, GL_FLOAT, offset, 16); offset += 16; }
    if (vertexType & VF_MORPH_ARRAY) {
        // Switching targets only moves the attribute offsets; no re-upload.
        for (int n = 0; n < kMorphSlots; ++n) {
            int target = enabledMorph[n];
            if (target < 0) continue;
            put(kMorphLocations[n], 3, GL_FLOAT, offset + 12u * static_cast<unsigned>(target), 12);
        }
    }
}

void ZuRenderMesh::warnOnce(const char* message) {
    if (warned) return;
    warned = true;
    QZLOGW("ZuRenderMesh: %s", message);
}

void ZuRenderMesh::drawBound(DRAWMETHOD mode, int count, bool allowIndex) {
    if (drawableVertices <= 0) return;
    if (allowIndex && useIndex) {
        if (!ibo) return;
        int n = indexCount;
        if (n > iboBytes / 2) {
            warnOnce("index count beyond the index data; clamped");
            n = iboBytes / 2;
        }
        if (maxIndex >= drawableVertices) {
            warnOnce("an index points past the vertex data; mesh not drawn");
            return;
        }
        if (n > 0) glDrawElements(mode, n, GL_UNSIGNED_SHORT, nullptr);
        return;
    }
    int n = count;
    if (n > drawableVertices) {
        warnOnce("vertex count beyond the vertex data; clamped");
        n = drawableVertices;
    }
    if (n > 0) glDrawArrays(mode, 0, n);
}

void ZuRenderMesh::render() {
    if (!visible) return;
    uploadData();
    drawBound(drawMethod, vertexCount, true);
    disableAttributes();
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

void ZuRenderMesh::renderGeometry(int count, bool lines) {
    if (!visible) return;
    uploadData();
    drawBound(lines ? GL_LINES : GL_POINTS, count, false);
    disableAttributes();
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}
