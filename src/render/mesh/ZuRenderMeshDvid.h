#pragma once

#include "render/mesh/ZuRenderMesh.h"

// A mesh with one GL buffer per attribute instead of one interleaved buffer,
// for data that arrives attribute by attribute (grids, face meshes). The
// setters upload at once and so run on the GL thread only; indices use the
// base's double-buffered setIndexData.
class ZuRenderMeshDvid : public ZuRenderMesh {
public:
    ZuRenderMeshDvid() = default;
    ~ZuRenderMeshDvid() override;

    void uploadData() override;
    virtual void setVertex3Data(const void* data, int bytes);
    virtual void setTexcoord0Data(const void* data, int bytes);
    virtual void setNormalData(const void* data, int bytes);

    void setVertex2Data(const void* data, int bytes);
    void setColor0Data(const void* data, int bytes);
    void setColor1Data(const void* data, int bytes);
    void setTexcoord1Data(const void* data, int bytes);
    void setTexcoord2Data(const void* data, int bytes);
    void setTagentData(const void* data, int bytes);
    void setBTagentData(const void* data, int bytes);

    // GL buffer names, 0 = none.
    unsigned getVbo2() const { return vbo2.id; }
    unsigned getVbo3() const { return vbo3.id; }
    unsigned getTex0Vbo() const { return tex0Vbo.id; }

private:
    // One attribute's GL buffer and the bytes it holds.
    struct Slot {
        unsigned id = 0;
        int bytes = 0;
    };
    enum SlotIndex {
        S_POS2, S_POS3, S_COLOR0, S_COLOR1, S_NORMAL, S_TANGENT, S_BTANGENT, S_TEX0, S_TEX1, S_TEX2,
        S_COUNT
    };

    void fill(SlotIndex slot, const void* data, int bytes, const char* what);
    // Binds one slot's buffer to a location when the buffer exists.
    void bindSlot(SlotIndex slot, unsigned location, int components, unsigned glType, int elementBytes);

    Slot& slotAt(SlotIndex index);

    Slot vbo2, vbo3, color0Vbo, color1Vbo, normalVbo, tangentVbo, btangentVbo, tex0Vbo, tex1Vbo,
        tex2Vbo;
};
