#pragma once

#include "data/SELF_3D_PT.h"

#include <cstdint>

// One face of the AS back end: the common head in engine coordinates, then
// the tracker's own pose matrices and 3D landmarks as it sent them.
struct PERSON_AS_DATA {
    static constexpr int kPointCount = 101;

    uint8_t valid = 0;
    float yaw = 0.0f;
    float pitch = 0.0f;
    float roll = 0.0f;
    int32_t top = 0;
    int32_t bottom = 0;
    int32_t right = 0;
    int32_t left = 0;
    float facePoints[kPointCount * 2] = {};

    uint8_t eyeData[24] = {};
    float matM[16] = {};
    float matV[16] = {};
    float matP[16] = {};
    SELF_3D_PT face3d[kPointCount];

    const float* getMatM() const { return matM; }
    const float* getMatV() const { return matV; }
    const float* getMatP() const { return matP; }
    const SELF_3D_PT* getFace3dData() const { return face3d; }
};
