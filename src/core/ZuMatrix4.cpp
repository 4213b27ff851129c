#include "core/ZuMatrix4.h"


void ZuMatrix4::makeIdentity() {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) m[r][c] = r == c ? 1.0f : 0.0f;
}

void ZuMatrix4::makeTransform(const ZuVec3& p, const ZuVec3& s, const ZuQuaternion& q) {
    // Rotation matrix of a unit quaternion for column vectors.
    float xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    float xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    float wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    float r[3][3] = {{1 - 2 * (yy + zz), 2 * (xy - wz), 2 * (xz + wy)},
                     {2 * (xy + wz), 1 - 2 * (xx + zz), 2 * (yz - wx)},
                     {2 * (xz - wy), 2 * (yz + wx), 1 - 2 * (xx + yy)}};
    const float sc[3] = {s.x, s.y, s.z};
    for (int row = 0; row < 3; ++row)
        for (int c = 0; c < 3; ++c) m[row][c] = r[row][c] * sc[c];
    m[0][3] = p.x;
    m[1][3] = p.y;
    m[2][3] = p.z;
    m[3][0] = m[3][1] = m[3][2] = 0.0f;
    m[3][3] = 1.0f;
}

ZuVec3 ZuMatrix4::transformAffine(const ZuVec3& v) const {
    return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z + m[0][3],
            m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z + m[1][3],
            m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z + m[2][3]};
}

ZuMatrix4 ZuMatrix4::concatenateAffine(const ZuMatrix4& a, const ZuMatrix4& b) {
    ZuMatrix4 out;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            float sum = 0.0f;
            for (int k = 0; k < 3; ++k) sum += a.m[r][k] * b.m[k][c];
            if (c == 3) sum += a.m[r][3];
            out.m[r][c] = sum;
        }
    }
    out.m[3][0] = out.m[3][1] = out.m[3][2] = 0.0f;
    out.m[3][3] = 1.0f;
    return out;
}

void ZuMatrix4::toColumnMajor(float* out) const {
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r) out[c * 4 + r] = m[r][c];
}

ZuMatrix4 ZuMatrix4::fromColumnMajor(const float* in) {
    ZuMatrix4 out;
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r) out.m[r][c] = in[c * 4 + r];
    return out;
}
