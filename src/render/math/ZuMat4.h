#pragma once

#include "render/math/ZuVec3.h"

// Euler rotation orders. The name lists the axes in the order they are
// applied to a point: EUR_XYZ turns about x first, then y, then z.
enum EUR_TYPE {
    EUR_XYZ = 0,
    EUR_XZY = 1,
    EUR_YXZ = 2,
    EUR_YZX = 3,
    EUR_ZXY = 4,
    EUR_ZYX = 5,
};

// A 4x4 float matrix in the layout GL takes without transposing.
//
// Convention, fixed once for the whole engine:
// - Element m[4*r + c]; translation sits in m[12], m[13], m[14]. Read as GL
//   does, that is column-major storage for column vectors; read as rows, a
//   point is a row vector multiplied on the left: p' = p * M.
// - multMat(a, b) is the row-major product a x b, so with row vectors
//   p * (a x b) applies a first, then b. A child's world matrix is
//   multMat(local, parentWorld).
// - Angles are degrees. A positive angle turns counter-clockwise when
//   looking down the axis towards the origin (right-handed): a turn of +90
//   about z takes (1, 0, 0) to (0, 1, 0).
// - The matrix keeps its position, rotation and scale components;
//   setScale, setRotation and setPostion each replace one of them and
//   recompose the matrix as scale, then rotation, then translation.
class ZuMat4 {
public:
    float m[16];
    ZuVec3 position{0.0f, 0.0f, 0.0f};
    ZuVec3 rotation{0.0f, 0.0f, 0.0f};
    ZuVec3 scale{1.0f, 1.0f, 1.0f};
    EUR_TYPE rotationOrder = EUR_XYZ;

    ZuMat4() { identity(); }

    // Identity matrix with zero position and rotation and unit scale.
    void identity();

    void setScale(const ZuVec3& s);
    void setRotation(const ZuVec3& degrees, EUR_TYPE order = EUR_XYZ);
    void setPostion(const ZuVec3& p);

    // out = a x b (see the convention above). out may alias a or b.
    static void multMat(const ZuMat4& a, const ZuMat4& b, ZuMat4& out);
    static ZuMat4 multMat(const ZuMat4& a, const ZuMat4& b);

    // The rotation part alone for the given Euler angles and order.
    static ZuMat4 rotationMatrix(const ZuVec3& degrees, EUR_TYPE order);

    // p * M for a point (w = 1).
    ZuVec3 transformPoint(const ZuVec3& p) const;

    const float* data() const { return m; }
    float& operator[](int i) { return m[i]; }
    float operator[](int i) const { return m[i]; }

private:
    void compose();
};
