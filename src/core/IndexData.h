#pragma once

#include <cstdint>
#include <vector>

// The indices of one submesh: 16- or 32-bit, never both.
class IndexData {
public:
    uint32_t indexStart = 0;
    uint32_t indexCount = 0;
    bool use32Bit = false;
    std::vector<uint32_t> indices32;
    std::vector<uint16_t> indices16;

    uint32_t getIndex(uint32_t i) const { return use32Bit ? indices32[i] : indices16[i]; }
};
