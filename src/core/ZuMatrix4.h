#pragma once

#include "render/math/ZuQuaternion.h"
#include "render/math/ZuVec3.h"

// A 4x4 matrix for column vectors, stored row by row: m[r][c], translation
// in the last column. Bone matrices of the 3D runtime use it; GL wants the
// transpose (see toColumnMajor).
struct ZuMatrix4 {
    float m[4][4];

    ZuMatrix4() { makeIdentity(); }
    void makeIdentity();
    // Scale first, then rotation, then translation.
    void makeTransform(const ZuVec3& position, const ZuVec3& scale, const ZuQuaternion& orientation);
    ZuVec3 transformAffine(const ZuVec3& v) const;
    // a x b for affine matrices; the last row of the result is (0, 0, 0, 1).
    static ZuMatrix4 concatenateAffine(const ZuMatrix4& a, const ZuMatrix4& b);
    // The 16 floats in the order GL reads them.
    void toColumnMajor(float* out) const;
    // The inverse of what toColumnMajor writes: a ZuMat4's storage read back.
    static ZuMatrix4 fromColumnMajor(const float* in);
};
