#include "render/math/ZuQuaternion.h"

#include "render/math/ZuMat4.h"

#include <cmath>

namespace {
const float kDegToRad = 3.14159265358979323846f / 180.0f;
}

ZuQuaternion ZuQuaternion::fromAngleAxis(float degrees, const ZuVec3& axis) {
    ZuVec3 n = axis.normalized();
    float half = 0.5f * degrees * kDegToRad;
    float s = std::sin(half);
    return {std::cos(half), n.x * s, n.y * s, n.z * s};
}

float ZuQuaternion::length() const { return std::sqrt(dot(*this)); }

ZuQuaternion ZuQuaternion::normalized() const {
    float len = length();
    if (!(len > 0.0f)) return {};
    return {w / len, x / len, y / len, z / len};
}

ZuQuaternion ZuQuaternion::operator*(const ZuQuaternion& o) const {
    return {w * o.w - x * o.x - y * o.y - z * o.z,
            w * o.x + x * o.w + y * o.z - z * o.y,
            w * o.y - x * o.z + y * o.w + z * o.x,
            w * o.z + x * o.y - y * o.x + z * o.w};
}

ZuVec3 ZuQuaternion::rotate(const ZuVec3& v) const {
    // v' = v + 2w (q x v) + 2 q x (q x v), q the vector part.
    ZuVec3 q(x, y, z);
    ZuVec3 t = q.cross(v) * 2.0f;
    return v + t * w + q.cross(t);
}

void ZuQuaternion::toRotationMatrix(ZuMat4& out) const {
    // Column-vector matrix R, stored transposed: the engine multiplies row
    // vectors on the left, so m[4r + c] = R[c][r].
    float xx = x * x, yy = y * y, zz = z * z;
    float xy = x * y, xz = x * z, yz = y * z;
    float wx = w * x, wy = w * y, wz = w * z;
    float R[3][3] = {
        {1.0f - 2.0f * (yy + zz), 2.0f * (xy - wz), 2.0f * (xz + wy)},
        {2.0f * (xy + wz), 1.0f - 2.0f * (xx + zz), 2.0f * (yz - wx)},
        {2.0f * (xz - wy), 2.0f * (yz + wx), 1.0f - 2.0f * (xx + yy)},
    };
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) out.m[4 * r + c] = (r < 3 && c < 3) ? R[c][r] : (r == c ? 1.0f : 0.0f);
}

ZuQuaternion ZuQuaternion::nlerp(float factor, const ZuQuaternion& a, const ZuQuaternion& b,
                                 bool shortestPath) {
    ZuQuaternion end = (shortestPath && a.dot(b) < 0.0f) ? -b : b;
    return (a + (end - a) * factor).normalized();
}
