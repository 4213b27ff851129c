#pragma once

#include <cstdint>

// One neutral reference face: landmark coordinates at a design image size.
struct StanderFace {
    static constexpr int kMaxValues = 800; // 400 x, y pairs

    int32_t facepoints_count = 0;
    int32_t face_top = 0;
    int32_t face_left = 0;
    int32_t face_bottom = 0;
    int32_t face_right = 0;
    float face_yaw = 0.0f;
    float face_roll = 0.0f;
    float face_pitch = 0.0f;
    int32_t design_img_width = 0;
    int32_t design_img_height = 0;
    float data[kMaxValues] = {};
};
