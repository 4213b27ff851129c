#pragma once

#include "data/SELF_FACE_OTHER.h"
#include "data/SELF_PT.h"

#include <cstdint>

// One face of the host-defined Self back end.
struct PERSON_SELF_DATA {
    static constexpr int kPointCount = 70;

    uint8_t valid = 0;
    float yaw = 0.0f;
    float pitch = 0.0f;
    float roll = 0.0f;
    int32_t top = 0;
    int32_t bottom = 0;
    int32_t right = 0;
    int32_t left = 0;
    SELF_PT facePoints[kPointCount];
    SELF_FACE_OTHER other;
};
