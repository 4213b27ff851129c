#pragma once

#include "render/math/ZuVec3.h"

class ZuMat4;

// A rotation as a unit quaternion (w, x, y, z), identity by default.
// Angles are degrees and turn counter-clockwise looking down the axis
// towards the origin, matching ZuMat4.
struct ZuQuaternion {
    float w = 1.0f, x = 0.0f, y = 0.0f, z = 0.0f;

    ZuQuaternion() = default;
    ZuQuaternion(float w, float x, float y, float z) : w(w), x(x), y(y), z(z) {}

    static ZuQuaternion fromAngleAxis(float degrees, const ZuVec3& axis);

    float dot(const ZuQuaternion& o) const { return w * o.w + x * o.x + y * o.y + z * o.z; }
    float length() const;
    // A zero quaternion becomes the identity rather than NaNs.
    ZuQuaternion normalized() const;

    // Hamilton product: (a * b) rotates by b first, then by a.
    ZuQuaternion operator*(const ZuQuaternion& o) const;
    ZuQuaternion operator+(const ZuQuaternion& o) const { return {w + o.w, x + o.x, y + o.y, z + o.z}; }
    ZuQuaternion operator-(const ZuQuaternion& o) const { return {w - o.w, x - o.x, y - o.y, z - o.z}; }
    ZuQuaternion operator*(float s) const { return {w * s, x * s, y * s, z * s}; }
    ZuQuaternion operator-() const { return {-w, -x, -y, -z}; }
    bool operator==(const ZuQuaternion& o) const { return w == o.w && x == o.x && y == o.y && z == o.z; }

    ZuVec3 rotate(const ZuVec3& v) const;

    // The rotation as a ZuMat4 in the engine's convention (p * M rotates p);
    // position and scale untouched, translation zero.
    void toRotationMatrix(ZuMat4& out) const;

    // a + factor x (b - a), normalised; with shortestPath a negative dot
    // product negates b first so the blend goes the short way round.
    static ZuQuaternion nlerp(float factor, const ZuQuaternion& a, const ZuQuaternion& b,
                              bool shortestPath = false);
};
