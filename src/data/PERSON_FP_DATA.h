#pragma once

#include <cstdint>

// One face of the ST or FP back end in engine coordinates.
struct PERSON_FP_DATA {
    static constexpr int kPointCount = 106;

    uint8_t valid = 0; // 1 when this slot holds a face of the latest record
    float yaw = 0.0f;
    float pitch = 0.0f;
    float roll = 0.0f;
    int32_t top = 0;
    int32_t bottom = 0;
    int32_t right = 0;
    int32_t left = 0;
    float facePoints[kPointCount * 2] = {}; // x, y pairs
};
