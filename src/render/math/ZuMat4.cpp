#include "render/math/ZuMat4.h"

#include <cmath>
#include <cstring>

namespace {

const float kDegToRad = 3.14159265358979323846f / 180.0f;

void setIdentity(float* m) {
    std::memset(m, 0, 16 * sizeof(float));
    m[0] = m[5] = m[10] = m[15] = 1.0f;
}

// Row-vector rotation about one axis: p * R turns p counter-clockwise.
ZuMat4 axisRotation(int axis, float degrees) {
    ZuMat4 r;
    float c = std::cos(degrees * kDegToRad);
    float s = std::sin(degrees * kDegToRad);
    int i = (axis + 1) % 3; // the two axes spanning the plane of the turn
    int j = (axis + 2) % 3;
    r.m[4 * i + i] = c;
    r.m[4 * i + j] = s;
    r.m[4 * j + i] = -s;
    r.m[4 * j + j] = c;
    return r;
}

} // namespace

void ZuMat4::identity() {
    setIdentity(m);
    position.set(0.0f, 0.0f, 0.0f);
    rotation.set(0.0f, 0.0f, 0.0f);
    scale.set(1.0f, 1.0f, 1.0f);
    rotationOrder = EUR_XYZ;
}

void ZuMat4::setScale(const ZuVec3& s) {
    scale = s;
    compose();
}

void ZuMat4::setRotation(const ZuVec3& degrees, EUR_TYPE order) {
    rotation = degrees;
    rotationOrder = order;
    compose();
}

void ZuMat4::setPostion(const ZuVec3& p) {
    position = p;
    compose();
}

void ZuMat4::multMat(const ZuMat4& a, const ZuMat4& b, ZuMat4& out) {
    float r[16];
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            r[4 * row + col] = a.m[4 * row + 0] * b.m[0 + col] + a.m[4 * row + 1] * b.m[4 + col] +
                               a.m[4 * row + 2] * b.m[8 + col] + a.m[4 * row + 3] * b.m[12 + col];
        }
    }
    std::memcpy(out.m, r, sizeof r);
}

ZuMat4 ZuMat4::multMat(const ZuMat4& a, const ZuMat4& b) {
    ZuMat4 out;
    multMat(a, b, out);
    return out;
}

ZuMat4 ZuMat4::rotationMatrix(const ZuVec3& degrees, EUR_TYPE order) {
    static const int kAxes[6][3] = {
        {0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0},
    };
    int index = (order >= EUR_XYZ && order <= EUR_ZYX) ? order : EUR_XYZ;
    const float angles[3] = {degrees.x, degrees.y, degrees.z};
    ZuMat4 result;
    for (int axis : kAxes[index]) {
        if (angles[axis] != 0.0f) multMat(result, axisRotation(axis, angles[axis]), result);
    }
    return result;
}

ZuVec3 ZuMat4::transformPoint(const ZuVec3& p) const {
    return {p.x * m[0] + p.y * m[4] + p.z * m[8] + m[12],
            p.x * m[1] + p.y * m[5] + p.z * m[9] + m[13],
            p.x * m[2] + p.y * m[6] + p.z * m[10] + m[14]};
}

void ZuMat4::compose() {
    // Scale, then rotation, then translation, as row vectors apply them.
    ZuMat4 r = rotationMatrix(rotation, rotationOrder);
    const float s[3] = {scale.x, scale.y, scale.z};
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 3; ++col) m[4 * row + col] = s[row] * r.m[4 * row + col];
    m[3] = m[7] = m[11] = 0.0f;
    m[12] = position.x;
    m[13] = position.y;
    m[14] = position.z;
    m[15] = 1.0f;
}
