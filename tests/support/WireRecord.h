#pragma once

#include <cstdint>
#include <array>
#include <cstring>
#include <map>
#include <utility>
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

using LandmarkMap = std::map<int, std::pair<float, float>>;

// An FP tracker record of `faces` faces, each unturned, with the rectangle
// (left, top, right, bottom) and 106 landmarks in camera pixels, y down: the
// points named in `points`, every other one at `rest`.
inline std::vector<uint8_t> fpFaceRecord(const LandmarkMap& points, std::pair<float, float> rest,
                                         const std::array<int32_t, 4>& rect, int faces = 1) {
    WireRecord record;
    record.i32(faces);
    for (int f = 0; f < faces; ++f) {
        for (int a = 0; a < 3; ++a) record.f32(0.0f);
        for (int32_t r : rect) record.i32(r);
        for (int i = 0; i < 106; ++i) {
            auto it = points.find(i);
            const std::pair<float, float> p = it != points.end() ? it->second : rest;
            record.f32(p.first);
            record.f32(p.second);
        }
    }
    return record.bytes;
}
