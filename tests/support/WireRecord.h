#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

// Builds trackers' flat records in tests: little-endian fields appended in
// wire order, written independently of the engine's reader.
struct WireRecord {
    std::vector<uint8_t> bytes;
    void i32(int32_t v) {
        uint32_t u;
        std::memcpy(&u, &v, 4);
        for (int k = 0; k < 4; ++k) bytes.push_back(static_cast<uint8_t>(u >> (8 * k)));
    }
    void f32(float v) {
        int32_t i;
        std::memcpy(&i, &v, 4);
        i32(i);
    }
    int size() const { return static_cast<int>(bytes.size()); }
};
