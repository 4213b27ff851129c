#pragma once

#include <cstdint>

// A triangle list over the landmarks of one back end.
struct FaceMesh {
    static constexpr int kMaxIndices = 1800; // 600 triangles

    int32_t tricount = 0;
    int32_t vertexcount = 0;
    int32_t data[kMaxIndices] = {};
};
