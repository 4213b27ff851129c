// Synthetic landmarks: the closed lip curve and the four extensions, with
// expected points worked out by hand from the construction rules.
#include "person/ZuASPointExt.h"
#include "person/ZuFPPointExt.h"
#include "person/ZuMathHelper.h"
#include "person/ZuPointExt.h"
#include "person/ZuZUPointExt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

void put(std::vector<float>& points, int i, float x, float y) {
    points[i * 2] = x;
    points[i * 2 + 1] = y;
}

} // namespace

TEST(NormalCurve, SquareGivesStepsPointsPerEdgeOnBulgingBeziers) {
    const ZuVec2 square[4] = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    qz::array<ZuVec2> out;
    ZuMathHelper::createNormalCurve(square, 4, 3, &out);
    ASSERT_EQ(out.size(), 12u);
    // Edge 0 to 1: controls (15, -15) and (85, -15); t = 3/4, 1/2, 1/4.
    EXPECT_EQ(out[0], ZuVec2(19, -8));
    EXPECT_EQ(out[1], ZuVec2(50, -11));
    EXPECT_EQ(out[2], ZuVec2(80, -8));
    // The square's symmetry: the opposite edge bulges the other way.
    EXPECT_EQ(out[7], ZuVec2(50, 111));
    qz::array<ZuVec2> none;
    ZuMathHelper::createNormalCurve(square, 2, 3, &none);
    EXPECT_EQ(none.size(), 0u) << "two points make no polygon";
}

TEST(PointExt, ForeheadPointsStandAboveTheAnchorsAtTheBrowDistances) {
    std::vector<float> points((106 + ZuPointExt::kMaxAdded) * 2, 0.0f);
    // Nose top 43 above nose bottom 49: the face's up is +y, L = 100.
    put(points, 43, 100, 200);
    put(points, 49, 100, 100);
    for (int i = 34; i <= 37; ++i) put(points, i, 60, 250);
    for (int i = 38; i <= 41; ++i) put(points, i, 140, 250);
    int count = 106;
    ZuFPPointExt::fp_foreHeadPointExtWithFaceLandMark(points.data(), count);
    ASSERT_EQ(count, 114);
    // d = |(60, 250) - (100, 200)| = 64.03: sideways to x 35 (left) and 164
    // (right), then up by 1.5 L.
    EXPECT_FLOAT_EQ(points[106 * 2], 35.0f);
    EXPECT_NEAR(points[106 * 2 + 1], 350.0f, 1e-3);
    EXPECT_FLOAT_EQ(points[110 * 2], 164.0f);
    EXPECT_NEAR(points[110 * 2 + 1], 350.0f, 1e-3);
}

TEST(PointExt, HalfCircleOutlineAndLipsFollowTheirLayouts) {
    std::vector<float> points((101 + ZuPointExt::kMaxAdded) * 2, 0.0f);
    // AS: contour 0 (left ear) to 18 (right ear), centre 99.
    for (int i = 0; i <= 18; ++i) put(points, i, 100.0f + i * 10.0f, 300.0f - std::abs(i - 9) * 5.0f);
    put(points, 99, 190, 350);
    for (int i = 75; i <= 94; ++i) put(points, i, 150.0f + 5.0f * std::cos(i * 0.7f), 200.0f + 5.0f * std::sin(i * 0.7f));
    int count = 101;
    ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark(points.data(), count);
    ASSERT_EQ(count, 109);
    // Ears at (100, 255) and (280, 255): radius 90 round (190, 255).
    for (int i = 101; i < 109; ++i)
        EXPECT_NEAR(std::hypot(points[i * 2] - 190.0f, points[i * 2 + 1] - 255.0f), 90.0f, 1e-3) << i;
    // From the left ear (180 degrees) back by 20 degrees a step.
    EXPECT_NEAR(points[101 * 2], 190.0f + 90.0f * std::cos(160.0f * 0.017453292f), 1e-3);

    ZuASPointExt::as_lipsPointExtWithFaceLandMark(points.data(), count);
    EXPECT_EQ(count, 109 + 24 + 36);
    ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark(points.data(), count);
    ASSERT_EQ(count, 109 + 60 + 19);
    // The chin (contour 9 at (190, 300)) pushed out from the centre (190, 350).
    EXPECT_FLOAT_EQ(points[(169 + 9) * 2], 190.0f);
    EXPECT_FLOAT_EQ(points[(169 + 9) * 2 + 1], 275.0f);

    std::vector<float> own((70 + ZuPointExt::kMaxAdded) * 2, 1.0f);
    int ownCount = 70;
    ZuZUPointExt::zu_faceOutlinePointExtWithFaceLandMark(own.data(), ownCount);
    EXPECT_EQ(ownCount, 70 + 17) << "the own layout's contour has 17 points";
}
