#pragma once

#include <cstdint>

// Value types of a vertex element as stored in mesh files.
enum VertexElementType : uint16_t {
    VET_FLOAT1 = 0,
    VET_FLOAT2 = 1,
    VET_FLOAT3 = 2,
    VET_FLOAT4 = 3,
    VET_COLOUR = 4,
    VET_SHORT1 = 5,
    VET_SHORT2 = 6,
    VET_SHORT3 = 7,
    VET_SHORT4 = 8,
    VET_UBYTE4 = 9,
    VET_COLOUR_ARGB = 10,
    VET_COLOUR_ABGR = 11,
};

// What an element means; the values models use.
enum VertexElementSemantic : uint16_t {
    VES_POSITION = 1,
    VES_BLEND_WEIGHTS = 2,
    VES_BLEND_INDICES = 3,
    VES_NORMAL = 4,
    VES_TEXTURE_COORDINATES = 7,
};

// One attribute of a vertex: which buffer (source), where in the vertex,
// of which type and meaning.
struct VertexElement {
    uint16_t source = 0;
    uint32_t offset = 0;
    uint16_t type = VET_FLOAT3;
    uint16_t semantic = VES_POSITION;
    uint16_t index = 0;

    VertexElement() = default;
    VertexElement(uint16_t source, uint32_t offset, uint16_t type, uint16_t semantic, uint16_t index)
        : source(source), offset(offset), type(type), semantic(semantic), index(index) {}

    uint32_t getSize() const { return getTypeSize(type); }

    // Bytes of one value of the type; 0 for a type the format doesn't know.
    static uint32_t getTypeSize(uint16_t type) {
        static const uint8_t sizes[12] = {4, 8, 12, 16, 4, 2, 4, 6, 8, 4, 4, 4};
        return type < 12 ? sizes[type] : 0;
    }
    static uint32_t getTypeCount(uint16_t type) {
        static const uint8_t counts[12] = {1, 2, 3, 4, 1, 1, 2, 3, 4, 4, 1, 1};
        return type < 12 ? counts[type] : 0;
    }
    // The component type: 0 float, 5 16-bit integer, otherwise the type itself.
    static uint16_t getBaseType(uint16_t type) {
        if (type <= VET_FLOAT4) return VET_FLOAT1;
        if (type >= VET_SHORT1 && type <= VET_SHORT4) return VET_SHORT1;
        return type;
    }
};
