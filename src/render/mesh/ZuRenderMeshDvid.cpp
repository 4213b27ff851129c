#include "render/mesh/ZuRenderMeshDvid.h"

#include "platform/ZuLog.h"

#include <GLES3/gl3.h>

ZuRenderMeshDvid::~ZuRenderMeshDvid() {
    for (int i = 0; i < S_COUNT; ++i) {
        Slot& slot = slotAt(static_cast<SlotIndex>(i));
        if (slot.id) glDeleteBuffers(1, &slot.id);
    }
}

ZuRenderMeshDvid::Slot& ZuRenderMeshDvid::slotAt(SlotIndex index) {
    switch (index) {
    case S_POS2: return vbo2;
    case S_POS3: return vbo3;
    case S_COLOR0: return color0Vbo;
    case S_COLOR1: return color1Vbo;
    case S_NORMAL: return normalVbo;
    case S_TANGENT: return tangentVbo;
    case S_BTANGENT: return btangentVbo;
    case S_TEX0: return tex0Vbo;
    case S_TEX1: return tex1Vbo;
    default: return tex2Vbo;
    }
}

void ZuRenderMeshDvid::fill(SlotIndex index, const void* data, int bytes, const char* what) {
    if (!data || bytes <= 0) {
        QZLOGW("ZuRenderMeshDvid::%s: no data (%d bytes) refused", what, bytes);
        return;
    }
    Slot& slot = slotAt(index);
    if (!slot.id) glGenBuffers(1, &slot.id);
    glBindBuffer(GL_ARRAY_BUFFER, slot.id);
    if (bytes > slot.bytes) {
        // Created, or grown: a sub-update past the end would be refused by GL.
        glBufferData(GL_ARRAY_BUFFER, bytes, data, vertexPool);
        slot.bytes = bytes;
    } else {
        glBufferSubData(GL_ARRAY_BUFFER, 0, bytes, data);
    }
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void ZuRenderMeshDvid::setVertex2Data(const void* d, int n) { fill(S_POS2, d, n, "setVertex2Data"); }
void ZuRenderMeshDvid::setVertex3Data(const void* d, int n) { fill(S_POS3, d, n, "setVertex3Data"); }
void ZuRenderMeshDvid::setColor0Data(const void* d, int n) { fill(S_COLOR0, d, n, "setColor0Data"); }
void ZuRenderMeshDvid::setColor1Data(const void* d, int n) { fill(S_COLOR1, d, n, "setColor1Data"); }
void ZuRenderMeshDvid::setTexcoord0Data(const void* d, int n) { fill(S_TEX0, d, n, "setTexcoord0Data"); }
void ZuRenderMeshDvid::setTexcoord1Data(const void* d, int n) { fill(S_TEX1, d, n, "setTexcoord1Data"); }
void ZuRenderMeshDvid::setTexcoord2Data(const void* d, int n) { fill(S_TEX2, d, n, "setTexcoord2Data"); }
void ZuRenderMeshDvid::setNormalData(const void* d, int n) { fill(S_NORMAL, d, n, "setNormalData"); }
void ZuRenderMeshDvid::setTagentData(const void* d, int n) { fill(S_TANGENT, d, n, "setTagentData"); }
void ZuRenderMeshDvid::setBTagentData(const void* d, int n) { fill(S_BTANGENT, d, n, "setBTagentData"); }

void ZuRenderMeshDvid::bindSlot(SlotIndex index, unsigned location, int components, unsigned glType,
                                int elementBytes) {
    const Slot& slot = slotAt(index);
    // A bit without its buffer is skipped: binding buffer 0 would make GL
    // read through a null client pointer.
    if (!slot.id) return;
    glBindBuffer(GL_ARRAY_BUFFER, slot.id);
    enableAttribute(location, components, glType, 0, 0);
    int count = slot.bytes / elementBytes;
    if (drawableVertices < 0 || count < drawableVertices) drawableVertices = count;
}

void ZuRenderMeshDvid::uploadData() {
    uploadIndexData();
    drawableVertices = -1; // no attribute bound yet
    if (vertexType & VF_POS2) bindSlot(S_POS2, 0, 2, GL_FLOAT, 8);
    if (vertexType & VF_POS3) bindSlot(S_POS3, 0, 3, GL_FLOAT, 12);
    if (vertexType & VF_NORMAL) bindSlot(S_NORMAL, 1, 3, GL_FLOAT, 12);
    if (vertexType & VF_COLOR0) bindSlot(S_COLOR0, 4, 4, GL_UNSIGNED_BYTE, 4);
    if (vertexType & VF_COLOR1) bindSlot(S_COLOR1, 5, 4, GL_UNSIGNED_BYTE, 4);
    if (vertexType & VF_TEX0) bindSlot(S_TEX0, 6, 2, GL_FLOAT, 8);
    if (vertexType & VF_TEX1) bindSlot(S_TEX1, 7, 2, GL_FLOAT, 8);
    if (vertexType & VF_TEX2) bindSlot(S_TEX2, 2, 2, GL_FLOAT, 8);
    if (drawableVertices < 0) drawableVertices = 0;
    // Tangents are kept for shaders to come; no location reads them yet.
}
