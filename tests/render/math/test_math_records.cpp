#include "render/math/ZuColor.h"
#include "render/math/ZuMat4.h"
#include "render/math/ZuQuaternion.h"
#include "render/ZuRenderCamera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Clip coordinates of a design point: p * VP as a row vector (w = 1).
void clip(const float* m, float x, float y, float z, float out[4]) {
    for (int c = 0; c < 4; ++c) out[c] = x * m[c] + y * m[4 + c] + z * m[8 + c] + m[12 + c];
}

} // namespace

TEST(ZuColor, PackedFormsRoundTrip) {
    ZuColor color;
    color.setColorARGB(0x80FF4000u);
    EXPECT_FLOAT_EQ(color.a, 128.0f / 255.0f);
    EXPECT_FLOAT_EQ(color.r, 1.0f);
    EXPECT_FLOAT_EQ(color.g, 64.0f / 255.0f);
    EXPECT_FLOAT_EQ(color.b, 0.0f);
    EXPECT_EQ(color.getColorARGB(), 0x80FF4000u);
    EXPECT_EQ(ZuColor(2.0f, -1.0f, NAN, 1.0f).getColorARGB(), 0xFFFF0000u); // clamped
    // (a << 24) | (r << 16) | (g << 8) | b
    EXPECT_EQ(ZuColor::transRgbaToID(0x12, 0x34, 0x56, 0x78), 0x78123456u);
    EXPECT_EQ(ZuColor::transRgbaToID(255, 255, 255, 255), 0xFFFFFFFFu);
}

TEST(ZuQuaternion, RotatesLikeTheMatrixConvention) {
    ZuQuaternion q = ZuQuaternion::fromAngleAxis(90.0f, ZuVec3(0, 0, 1));
    ZuVec3 v = q.rotate(ZuVec3(1, 0, 0));
    EXPECT_NEAR(v.x, 0.0f, 1e-6f);
    EXPECT_NEAR(v.y, 1.0f, 1e-6f);

    // Same turn through the matrix form and ZuMat4's own Euler rotation.
    ZuMat4 fromQ;
    ZuQuaternion::fromAngleAxis(30.0f, ZuVec3(1, 2, 3)).toRotationMatrix(fromQ);
    ZuMat4 zOnly;
    ZuQuaternion::fromAngleAxis(-40.0f, ZuVec3(0, 0, 2)).toRotationMatrix(zOnly);
    ZuMat4 euler = ZuMat4::rotationMatrix(ZuVec3(0, 0, -40.0f), EUR_XYZ);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(zOnly.m[i], euler.m[i], 1e-6f) << i;
    ZuVec3 p(0.3f, -1.2f, 2.0f);
    ZuVec3 a = fromQ.transformPoint(p);
    ZuVec3 b = ZuQuaternion::fromAngleAxis(30.0f, ZuVec3(1, 2, 3)).rotate(p);
    EXPECT_NEAR(a.x, b.x, 1e-5f);
    EXPECT_NEAR(a.y, b.y, 1e-5f);
    EXPECT_NEAR(a.z, b.z, 1e-5f);

    // Composition: (a * b) applies b first.
    ZuQuaternion qx = ZuQuaternion::fromAngleAxis(90.0f, ZuVec3(1, 0, 0));
    ZuVec3 c = (q * qx).rotate(ZuVec3(0, 1, 0)); // x turn: (0,0,1); then z turn keeps it
    EXPECT_NEAR(c.z, 1.0f, 1e-6f);
}

TEST(ZuQuaternion, NlerpTakesTheShortWayOnlyWhenAsked) {
    ZuQuaternion a;                       // identity
    ZuQuaternion b(-1.0f, 0.0f, 0.0f, 0.0f); // the same rotation, opposite sign
    ZuQuaternion shortWay = ZuQuaternion::nlerp(0.5f, a, b, true);
    EXPECT_NEAR(shortWay.w, 1.0f, 1e-6f);
    // Blending 0 and 90 degrees about z halfway gives 45 degrees.
    ZuQuaternion half = ZuQuaternion::nlerp(0.5f, a, ZuQuaternion::fromAngleAxis(90.0f, ZuVec3(0, 0, 1)));
    EXPECT_NEAR(half.w, std::cos(22.5f * 3.14159265f / 180.0f), 1e-6f);
    EXPECT_NEAR(half.length(), 1.0f, 1e-6f);
    EXPECT_EQ(ZuQuaternion(0, 0, 0, 0).normalized(), ZuQuaternion());
}

TEST(ZuRenderCamera, DefaultCameraFitsTheDesignPlaneToTheView) {
    ZuRenderCamera camera;
    EXPECT_EQ(camera.getWidth(), 720.0f);
    EXPECT_EQ(camera.getHeight(), 1280.0f);
    EXPECT_EQ(camera.getFovy(), 60.0f);
    // Corners and centre of the z = 0 plane land on the NDC corners and the
    // origin; the far-plane term scales by (far - near) / far.
    const float k = (6000.0f - 1.0f) / 6000.0f;
    const float points[3][2] = {{0, 0}, {720, 1280}, {360, 640}};
    const float ndc[3][2] = {{-k, -k}, {k, k}, {0, 0}};
    for (int i = 0; i < 3; ++i) {
        float c[4];
        clip(camera.getVPMat(), points[i][0], points[i][1], 0.0f, c);
        ASSERT_GT(c[3], 0.0f);
        EXPECT_NEAR(c[0] / c[3], ndc[i][0], 1e-4f) << i;
        EXPECT_NEAR(c[1] / c[3], ndc[i][1], 1e-4f) << i;
        EXPECT_LT(std::fabs(c[2] / c[3]), 1.0f) << "inside the depth range";
    }
}

TEST(ZuRenderCamera, ProjectionElementsAndDegenerateInput) {
    ZuRenderCamera camera;
    camera.setProjectParam(2.0f, 4.0f, 90.0f, 2.0f);
    const float* p = camera.getProjectMat();
    float top = std::tan(45.0f * 0.01745f) * 2.0f;
    EXPECT_FLOAT_EQ(p[0], 2.0f / (top * 2.0f));
    EXPECT_FLOAT_EQ(p[5], 2.0f / top);
    EXPECT_FLOAT_EQ(p[10], -3.0f);
    EXPECT_FLOAT_EQ(p[11], -4.0f); // -far x near / (far - near), no factor 2
    EXPECT_FLOAT_EQ(p[14], -1.0f);
    EXPECT_FLOAT_EQ(p[15], 0.0f);

    // near == far would divide by zero: refused, the old projection stays.
    camera.setZ(5.0f, 5.0f);
    EXPECT_FLOAT_EQ(camera.getProjectMat()[10], -3.0f);
    camera.resetRenderCamera(0.0f, 100.0f); // refused
    EXPECT_EQ(camera.getWidth(), 720.0f);
}

TEST(ZuRenderCamera, DirectionIsMirroredUnlessMirrorModeIsSet) {
    ZuRenderCamera camera;
    camera.setCameraDirection(1.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(camera.getCameraDirection().x, -1.0f);
    camera.setMirrorMode(true);
    camera.setCameraDirection(3.0f, 0.0f, 4.0f);
    EXPECT_FLOAT_EQ(camera.getCameraDirection().x, 0.6f);
    EXPECT_FLOAT_EQ(camera.getCameraDirection().z, 0.8f);
    // Elements 2, 6, 10 hold -dir.
    const float* m = camera.getCameraMat();
    EXPECT_FLOAT_EQ(m[2], -0.6f);
    EXPECT_FLOAT_EQ(m[10], -0.8f);
    EXPECT_FLOAT_EQ(m[15], 1.0f);
}
