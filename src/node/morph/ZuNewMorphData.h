#pragma once

#include <cstdint>

// One rule of the landmark-driven morph: the listed mesh vertices move
// towards the line from vertex startIndex to vertex endIndex, by strength
// (0 leaves them, 1 puts them on the line). An adaptive rule pulls less
// when the listed points already lie close to the line against its length.
class ZuNewMorphData {
public:
    ZuNewMorphData() = default;
    ZuNewMorphData(const ZuNewMorphData& other);
    ZuNewMorphData& operator=(const ZuNewMorphData& other);
    virtual ~ZuNewMorphData();

    // Replaces the listed vertices with a copy of count numbers.
    void setIndices(const int32_t* values, uint32_t count);

    int32_t startIndex = 0;
    int32_t endIndex = 0;
    uint32_t count = 0;
    int32_t* indices = nullptr;  // count vertex numbers, owned
    float strength = 0.0f;
    bool adaptive = false;
};
