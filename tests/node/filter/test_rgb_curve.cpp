// The curve tables of the run-time look, against the parabolas written out
// here from their three defining points, and the clamping rules.
#include "node/filter/ZuInterpolation.h"
#include "node/filter/ZuRGBCurve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using Planes = std::vector<unsigned char>;
const int kPlane = ZuRGBCurve::kPlane;

// y = a x^2 + b x through (0, 0), (255, 255) and (pivot, pivot + delta).
int parabola(int x, int pivot, int delta) {
    const double a = static_cast<double>(delta) / (pivot * pivot - 255.0 * pivot);
    return static_cast<int>(std::trunc(a * x * x + (1.0 - 255.0 * a) * x));
}

// Table entries are stored as bytes without a clamp: a value past 255 wraps.
bool byteNear(int got, int expected, int tolerance) {
    const int d = std::abs(got - (expected & 0xFF));
    return std::min(d, 256 - d) <= tolerance;
}

Planes plane(const Planes& planes, int index) {
    return Planes(planes.begin() + index * kPlane, planes.begin() + (index + 1) * kPlane);
}

Planes identity() {
    Planes out(kPlane);
    for (int i = 0; i < kPlane; ++i) out[i] = static_cast<unsigned char>(i);
    return out;
}

} // namespace

TEST(RGBCurve, PivotCurvePassesItsThreePoints) {
    Planes out(kPlane);
    ZuRGBCurve::get_single_curve_x(out.data(), 160, 40);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[255], 255);
    EXPECT_NEAR(out[160], 200, 1);
    for (int i = 0; i < kPlane; ++i) EXPECT_NEAR(out[i], parabola(i, 160, 40), 1) << i;
    // A pivot at an end cannot bend the line: the identity, not a division by zero.
    ZuRGBCurve::get_single_curve_x(out.data(), 0, 40);
    EXPECT_EQ(out, identity());
}

TEST(RGBCurve, BrightnessClampsIntoTheRecordAndLayersChannelsOverAll) {
    delta_rgb_contrast d;
    d.brightAll = 200;
    d.brightR = 30;
    d.brightG = -10;
    Planes out(4 * kPlane);
    ZuRGBCurve::getCurve_brightness(out.data(), &d);
    EXPECT_EQ(d.brightAll, 90) << "the clamped value stands in the record";
    EXPECT_EQ(d.brightG, -10) << "a channel that is not applied is not clamped either";
    const Planes all = plane(out, 3);
    // At 90 the bend overshoots 255 near the top, and those entries wrap.
    for (int i = 0; i < kPlane; ++i) EXPECT_TRUE(byteNear(all[i], parabola(i, 160, 90), 1)) << i;
    EXPECT_LT(all[230], 40) << "wrapped";
    // Red: its own curve plus what All adds, clamped.
    const Planes red = plane(out, 0);
    for (int i = 0; i < kPlane; ++i) {
        const int expected = std::min(255, std::max(0, parabola(i, 160, 30) + all[i] - i));
        EXPECT_NEAR(red[i], expected, 1) << i;
    }
    EXPECT_EQ(plane(out, 1), all) << "a darkening channel copies All";
    EXPECT_EQ(plane(out, 2), all);

    delta_rgb_contrast none;
    none.brightR = -10;
    ZuRGBCurve::getCurve_brightness(out.data(), &none);
    EXPECT_EQ(plane(out, 0), identity()) << "without All a channel that is not applied is the identity";
}

TEST(RGBCurve, ContrastRefusesDeltasThatPullTheSameWay) {
    Planes out(4 * kPlane);
    delta_rgb_contrast same;
    same.contrast[3] = {10, 10, 128};
    EXPECT_EQ(ZuRGBCurve::getCurve_contrast(out.data(), &same), -1);
    delta_rgb_contrast bothDown;
    bothDown.contrast[3] = {-5, -5, 128};
    EXPECT_EQ(ZuRGBCurve::getCurve_contrast(out.data(), &bothDown), -1);

    delta_rgb_contrast opposite;
    opposite.contrast[3] = {10, -10, 128};
    EXPECT_EQ(ZuRGBCurve::getCurve_contrast(out.data(), &opposite), 0);
    const Planes all = plane(out, 3);
    EXPECT_EQ(all[128], 128);
    // Below the pivot the part bends by second (-10: darker at a quarter), above by first.
    EXPECT_LT(all[64], 64);
    EXPECT_GT(all[192], 192);
    const float a = static_cast<float>(-4.0 * -10 / (128.0 * 128.0));
    EXPECT_EQ(all[64], static_cast<int>(a * 64 * 64 + (1.0f - a * 128) * 64));

    delta_rgb_contrast clamped;
    clamped.contrast[3] = {200, -300, 128};
    ZuRGBCurve::getCurve_contrast(out.data(), &clamped);
    EXPECT_EQ(clamped.contrast[3].first, 70);
    EXPECT_EQ(clamped.contrast[3].second, -70);
}

TEST(RGBCurve, AContrastPivotBeyondTheRangeBehavesAs128) {
    Planes far(4 * kPlane), middle(4 * kPlane);
    delta_rgb_contrast a;
    a.contrast[3] = {20, -20, 300};
    delta_rgb_contrast b;
    b.contrast[3] = {20, -20, 128};
    ZuRGBCurve::getCurve_contrast(far.data(), &a);
    ZuRGBCurve::getCurve_contrast(middle.data(), &b);
    EXPECT_EQ(far, middle);
}

TEST(RGBCurve, StraightContrastIsTwoClampedLines) {
    Planes out = identity();
    ZuRGBCurve::adjust_contrast(out.data(), 100, -20, 30);
    EXPECT_EQ(out[0], 0) << "-20 at the bottom, clamped to 0";
    EXPECT_EQ(out[50], static_cast<int>(-20.0f * 50 / 100 + 50));
    EXPECT_EQ(out[100], 100);
    EXPECT_EQ(out[200], std::min(255, static_cast<int>(30.0f * 100 / 155 + 200)));
    EXPECT_EQ(out[255], 255);
    Planes untouched = identity();
    ZuRGBCurve::adjust_contrast(untouched.data(), 100, 120, 0);
    EXPECT_EQ(untouched, identity()) << "a lower end above the pivot writes nothing";
}

TEST(Spline, NaturalCubicThroughControlPointsWithStraightEnds) {
    // Three points on a line: the spline is the line itself.
    CurveLine line;
    for (float v : {0.0f, 0.0f, 100.0f, 100.0f, 255.0f, 255.0f}) line.push_back(v);
    CurveLine out;
    ZuInterpolation::_splineCurve(&out, &line);
    ASSERT_EQ(out.size(), 256u * 2);
    for (uint32_t i = 0; i < out.size() / 2; ++i) {
        EXPECT_FLOAT_EQ(out[2 * i], static_cast<float>(i));
        EXPECT_NEAR(out[2 * i + 1], static_cast<float>(i), 1e-4) << i;
    }

    // (0, 0), (128, 192), (255, 255): with d0 = d2 = 0 the one equation left
    // is (255 / 3) d1 = 63/127 - 192/128, and at x = 64 (t = 1/2) the curve
    // lies above the chord by (128^2 / 6) * (t - t^3) * -d1.
    CurveLine bent;
    for (float v : {0.0f, 0.0f, 128.0f, 192.0f, 255.0f, 255.0f}) bent.push_back(v);
    CurveLine curve;
    ZuInterpolation::_splineCurve(&curve, &bent);
    const double d1 = (63.0 / 127.0 - 192.0 / 128.0) / (255.0 / 3.0);
    const double expected = 0.5 * 192.0 + 128.0 * 128.0 / 6.0 * (0.125 - 0.5) * d1;
    EXPECT_NEAR(curve[2 * 64 + 1], expected, 1e-3);
    EXPECT_FLOAT_EQ(curve[2 * 128 + 1], 192.0f) << "the curve passes its control points";

    // A point that steps back in x is skipped rather than divided by.
    CurveLine back;
    for (float v : {0.0f, 0.0f, 50.0f, 300.0f, 40.0f, 10.0f}) back.push_back(v);
    CurveLine skipped;
    ZuInterpolation::_splineCurve(&skipped, &back);
    for (uint32_t i = 0; i < skipped.size(); i += 2) EXPECT_LE(skipped[i + 1], 255.0f) << "clamped";
}
