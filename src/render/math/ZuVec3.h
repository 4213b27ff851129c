#pragma once

#include <cmath>

// A plain three-float record: positions, directions, Euler angles, scales.
struct ZuVec3 {
    float x = 0.0f, y = 0.0f, z = 0.0f;

    ZuVec3() = default;
    ZuVec3(float x, float y, float z) : x(x), y(y), z(z) {}

    void set(float nx, float ny, float nz) { x = nx; y = ny; z = nz; }

    ZuVec3 operator+(const ZuVec3& o) const { return {x + o.x, y + o.y, z + o.z}; }
    ZuVec3 operator-(const ZuVec3& o) const { return {x - o.x, y - o.y, z - o.z}; }
    ZuVec3 operator*(float s) const { return {x * s, y * s, z * s}; }
    ZuVec3& operator+=(const ZuVec3& o) { x += o.x; y += o.y; z += o.z; return *this; }
    bool operator==(const ZuVec3& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const ZuVec3& o) const { return !(*this == o); }

    float length() const { return std::sqrt(x * x + y * y + z * z); }
    float dot(const ZuVec3& o) const { return x * o.x + y * o.y + z * o.z; }
    ZuVec3 cross(const ZuVec3& o) const {
        return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
    }

    // A zero vector stays zero instead of turning into NaNs.
    ZuVec3 normalized() const {
        float len = length();
        if (len <= 0.0f) return {0.0f, 0.0f, 0.0f};
        return {x / len, y / len, z / len};
    }
};
