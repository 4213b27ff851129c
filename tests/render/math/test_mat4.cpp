#include "render/math/ZuMat4.h"

#include <gtest/gtest.h>

namespace {

void expectPoint(const ZuVec3& p, float x, float y, float z) {
    EXPECT_NEAR(p.x, x, 1e-4f);
    EXPECT_NEAR(p.y, y, 1e-4f);
    EXPECT_NEAR(p.z, z, 1e-4f);
}

} // namespace

TEST(Mat4, ProductFollowsTheRowMajorFormulaWithTranslationInTheLastRow) {
    ZuMat4 a, b;
    for (int i = 0; i < 16; ++i) {
        a.m[i] = static_cast<float>(i + 1);
        b.m[i] = static_cast<float>(16 - i);
    }
    ZuMat4 out = ZuMat4::multMat(a, b);
    // out[4r + c] = sum_k a[4r + k] * b[4k + c], worked by hand for two cells.
    EXPECT_FLOAT_EQ(out.m[0], 1 * 16 + 2 * 12 + 3 * 8 + 4 * 4);
    EXPECT_FLOAT_EQ(out.m[4 * 2 + 3], 9 * 13 + 10 * 9 + 11 * 5 + 12 * 1);
    ZuMat4 aliased = a;
    ZuMat4::multMat(aliased, b, aliased);
    for (int i = 0; i < 16; ++i) EXPECT_FLOAT_EQ(aliased.m[i], out.m[i]);
}

TEST(Mat4, RotationsAreCounterClockwiseInDegrees) {
    expectPoint(ZuMat4::rotationMatrix({0, 0, 90}, EUR_XYZ).transformPoint({1, 0, 0}), 0, 1, 0);
    expectPoint(ZuMat4::rotationMatrix({90, 0, 0}, EUR_XYZ).transformPoint({0, 1, 0}), 0, 0, 1);
    expectPoint(ZuMat4::rotationMatrix({0, 90, 0}, EUR_XYZ).transformPoint({0, 0, 1}), 1, 0, 0);
}

TEST(Mat4, EulerOrderNamesTheAxesInTheOrderApplied) {
    // x then z: (0, 1, 0) -> x90 -> (0, 0, 1) -> z90 -> (0, 0, 1).
    expectPoint(ZuMat4::rotationMatrix({90, 0, 90}, EUR_XYZ).transformPoint({0, 1, 0}), 0, 0, 1);
    // z then x: (0, 1, 0) -> z90 -> (-1, 0, 0) -> x90 -> (-1, 0, 0).
    expectPoint(ZuMat4::rotationMatrix({90, 0, 90}, EUR_ZYX).transformPoint({0, 1, 0}), -1, 0, 0);
}

TEST(Mat4, ComposesScaleThenRotationThenTranslation) {
    ZuMat4 m;
    m.setScale({2, 3, 1});
    m.setRotation({0, 0, 90});
    m.setPostion({10, 20, 30});
    // (1, 1, 0) scaled to (2, 3), turned to (-3, 2), moved to (7, 22, 30).
    expectPoint(m.transformPoint({1, 1, 0}), 7, 22, 30);
    EXPECT_FLOAT_EQ(m.m[12], 10);
    EXPECT_FLOAT_EQ(m.m[13], 20);
    EXPECT_FLOAT_EQ(m.m[14], 30);

    // A child's world matrix is multMat(local, parent): local applies first.
    ZuMat4 parent;
    parent.setPostion({100, 0, 0});
    expectPoint(ZuMat4::multMat(m, parent).transformPoint({1, 1, 0}), 107, 22, 30);
}
