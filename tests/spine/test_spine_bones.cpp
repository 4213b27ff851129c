// World transforms of bones and the bone timelines (rotate, translate,
// scale, shear) with linear, stepped and Bezier curves. Expected matrices
// are worked out by hand in the comments: a bone's local matrix is
// [cos(r+shx)*sx, cos(r+90+shy)*sy; sin(r+shx)*sx, sin(r+90+shy)*sy] and a
// child's world matrix is the parent's times its local one.
#include "SpineTestSupport.h"

#include <cmath>

using namespace spinetest;

namespace {

const float kS = 0.70710678f;  // sin 45 = cos 45

const char* kChain = R"({
  "bones": [
    {"name": "root", "x": 10, "y": 20},
    {"name": "child", "parent": "root", "x": 50, "rotation": 90, "scaleX": 2},
    {"name": "grandchild", "parent": "child", "x": 10, "rotation": -90},
    {"name": "sheared", "parent": "root", "shearY": 45},
    {"name": "noRotation", "parent": "child", "x": 10, "inheritRotation": false},
    {"name": "noScale", "parent": "child", "x": 10, "inheritScale": false},
    {"name": "neither", "parent": "child", "x": 10, "inheritRotation": false, "inheritScale": false}
  ]
})";

class BoneWorld : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.load(kChain)) << rig.error(); }
    void TearDown() override {
        spBone_setYDown(0);
    }
    Rig rig;
};

} // namespace

TEST_F(BoneWorld, SetupPoseComposesParentAndLocal) {
    // root: identity at (10, 20).
    expectMatrix(rig.bone("root"), 1, 0, 0, 1, 10, 20);
    // child: rotation 90, scale (2, 1): local [0, -1; 2, 0], at root + (50, 0).
    expectMatrix(rig.bone("child"), 0, -1, 2, 0, 60, 20);
    // grandchild: local [0, 1; -1, 0]; world = [0,-1;2,0] * [0,1;-1,0] = [1,0;0,2];
    // position = child + [0,-1;2,0] * (10, 0) = (60, 40).
    expectMatrix(rig.bone("grandchild"), 1, 0, 0, 2, 60, 40);
    // shear y 45: the y axis turns to 135 degrees.
    expectMatrix(rig.bone("sheared"), 1, -kS, 0, kS, 10, 20);
    EXPECT_EQ(rig.bone("child")->worldSignX, 1);
}

TEST_F(BoneWorld, InheritFlagsPickTheParentParts) {
    // Scale only: child's scale 2 along its own axis, which points up: the
    // world gets diag(1, 2) and no rotation.
    expectMatrix(rig.bone("noRotation"), 1, 0, 0, 2, 60, 40);
    // Rotation only: the child's 90 degrees without its scale.
    expectMatrix(rig.bone("noScale"), 0, -1, 1, 0, 60, 40);
    // Neither: the local matrix; the position still follows the parent.
    expectMatrix(rig.bone("neither"), 1, 0, 0, 1, 60, 40);
}

TEST_F(BoneWorld, FlipsAndYDown) {
    rig.skeleton->flipX = 1;
    spSkeleton_updateWorldTransform(rig.skeleton);
    // Mirrored in x: a and b negate and so does x.
    expectMatrix(rig.bone("root"), -1, 0, 0, 1, -10, 20);
    expectMatrix(rig.bone("child"), 0, 1, 2, 0, -60, 20);
    expectMatrix(rig.bone("noRotation"), -1, 0, 0, 2, -60, 40);

    rig.skeleton->flipX = 0;
    spBone_setYDown(1);
    spSkeleton_updateWorldTransform(rig.skeleton);
    expectMatrix(rig.bone("root"), 1, 0, 0, -1, 10, -20);
    // A flipped skeleton in a y-down world is upright again.
    rig.skeleton->flipY = 1;
    spSkeleton_updateWorldTransform(rig.skeleton);
    expectMatrix(rig.bone("root"), 1, 0, 0, 1, 10, 20);
}

TEST_F(BoneWorld, NegativeScaleSetsWorldSign) {
    spBone* child = rig.bone("child");
    child->scaleY = -1;
    spSkeleton_updateWorldTransform(rig.skeleton);
    EXPECT_EQ(child->worldSignY, -1);
    EXPECT_EQ(rig.bone("grandchild")->worldSignY, -1);
    child->scaleY = 0;  // zero counts as negative
    spSkeleton_updateWorldTransform(rig.skeleton);
    EXPECT_EQ(child->worldSignY, -1);
}

TEST_F(BoneWorld, LocalAndWorldConversionsInvertEachOther) {
    spBone* child = rig.bone("child");
    float wx, wy, lx, ly;
    spBone_localToWorld(child, 3, 4, &wx, &wy);
    // [0,-1;2,0] * (3, 4) + (60, 20)
    EXPECT_NEAR(wx, 56, 1e-4);
    EXPECT_NEAR(wy, 26, 1e-4);
    spBone_worldToLocal(child, wx, wy, &lx, &ly);
    EXPECT_NEAR(lx, 3, 1e-4);
    EXPECT_NEAR(ly, 4, 1e-4);
    EXPECT_NEAR(spBone_getWorldRotationX(child), 90, 1e-3);
    EXPECT_NEAR(spBone_getWorldScaleX(child), 2, 1e-4);
}

namespace {

// Bone "b" under the root with setup rotation 10, position (5, 6), scale
// (2, 1). Rotate keys: [0,1] linear 0->60, [1,2] stepped at 60, [2,3]
// Bezier (0.6, 0.1, 0.9, 0.4) 120->150. Translate, scale and shear keys as
// below.
const char* kTimelines = R"({
  "bones": [
    {"name": "root"},
    {"name": "b", "parent": "root", "x": 5, "y": 6, "rotation": 10, "scaleX": 2}
  ],
  "animations": {
    "rotate": {"bones": {"b": {"rotate": [
      {"time": 0, "angle": 0},
      {"time": 1, "angle": 60, "curve": "stepped"},
      {"time": 2, "angle": 120, "curve": [0.6, 0.1, 0.9, 0.4]},
      {"time": 3, "angle": 150}
    ]}}},
    "translate": {"bones": {"b": {"translate": [
      {"time": 0, "x": 0, "y": 0},
      {"time": 1, "x": 100, "y": -50, "curve": "stepped"},
      {"time": 2, "x": 0, "y": 0, "curve": [0.25, 0.5, 0.5, 1]},
      {"time": 3, "x": 40, "y": 80}
    ]}}},
    "scale": {"bones": {"b": {"scale": [
      {"time": 0, "x": 1, "y": 1},
      {"time": 1, "x": 3, "y": 0.5, "curve": "stepped"},
      {"time": 2, "x": 1, "y": 1}
    ]}}},
    "shear": {"bones": {"b": {"shear": [
      {"time": 0, "x": 0, "y": 0},
      {"time": 1, "x": 20, "y": 40}
    ]}}},
    "late": {"bones": {"b": {"rotate": [{"time": 0.5, "angle": 30}, {"time": 1, "angle": 40}]}}},
    "wrap": {"bones": {"b": {"rotate": [{"time": 0, "angle": 170}, {"time": 1, "angle": -170}]}}},
    "still": {"bones": {"b": {"rotate": [{"time": 0, "angle": 35}]}}}
  }
})";

class BoneTimelines : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.load(kTimelines)) << rig.error(); }

    // World matrix of a root child with the given local pose.
    void expectLocal(float rotation, float x, float y, float sx, float sy, float shx = 0, float shy = 0) {
        const float d2r = 3.14159265358979f / 180;
        expectMatrix(rig.bone("b"), std::cos((rotation + shx) * d2r) * sx, std::cos((rotation + 90 + shy) * d2r) * sy,
                     std::sin((rotation + shx) * d2r) * sx, std::sin((rotation + 90 + shy) * d2r) * sy, x, y);
    }
    Rig rig;
};

} // namespace

TEST_F(BoneTimelines, RotateLinearSteppedAndBezier) {
    rig.pose("rotate", 0.5f);
    expectLocal(10 + 30, 5, 6, 2, 1);  // linear halfway 0 -> 60
    rig.pose("rotate", 1.7f);
    expectLocal(10 + 60, 5, 6, 2, 1);  // stepped holds 60
    rig.pose("rotate", 2.3f);
    float p = bezierPercent(0.6f, 0.1f, 0.9f, 0.4f, 0.3f);
    EXPECT_LT(p, 0.3f);  // this curve starts slow
    expectLocal(10 + 120 + 30 * p, 5, 6, 2, 1);
    rig.pose("rotate", 2.85f);
    expectLocal(10 + 120 + 30 * bezierPercent(0.6f, 0.1f, 0.9f, 0.4f, 0.85f), 5, 6, 2, 1);
    rig.pose("rotate", 7);
    expectLocal(10 + 150, 5, 6, 2, 1);  // after the last key it stands
}

TEST_F(BoneTimelines, TranslateLinearSteppedAndBezier) {
    rig.pose("translate", 0.25f);
    expectLocal(10, 5 + 25, 6 - 12.5f, 2, 1);
    rig.pose("translate", 1.99f);
    expectLocal(10, 5 + 100, 6 - 50, 2, 1);
    rig.pose("translate", 2.6f);
    float p = bezierPercent(0.25f, 0.5f, 0.5f, 1, 0.6f);
    expectLocal(10, 5 + 40 * p, 6 + 80 * p, 2, 1);
}

TEST_F(BoneTimelines, ScaleMultipliesTheSetupScale) {
    rig.pose("scale", 0.5f);
    expectLocal(10, 5, 6, 2 * 2, 0.75f);
    rig.pose("scale", 1.5f);
    expectLocal(10, 5, 6, 2 * 3, 0.5f);
}

TEST_F(BoneTimelines, ShearAddsToTheSetupShear) {
    rig.pose("shear", 0.5f);
    expectLocal(10, 5, 6, 2, 1, 10, 20);
}

TEST_F(BoneTimelines, BeforeTheFirstKeyNothingChanges) {
    spBone* b = rig.bone("b");
    b->rotation = 77;
    spAnimation_apply(rig.animation("late"), rig.skeleton, -1, 0.25f, 0, nullptr, nullptr);
    EXPECT_FLOAT_EQ(b->rotation, 77);
    spAnimation_apply(rig.animation("late"), rig.skeleton, -1, 0.5f, 0, nullptr, nullptr);
    EXPECT_NEAR(b->rotation, 10 + 30, 1e-4);
}

TEST_F(BoneTimelines, RotationTurnsTheShortWay) {
    rig.pose("wrap", 0.5f);
    // 170 -> -170 passes through 180, not through 0.
    EXPECT_NEAR(std::fabs(spWrapDegrees(rig.bone("b")->rotation - 10)), 180, 1e-3);
    EXPECT_NEAR(rig.bone("b")->a, 2 * std::cos(190 * 3.14159265f / 180), 1e-4);
}

TEST_F(BoneTimelines, MixBlendsFromTheCurrentPose) {
    spSkeleton_setToSetupPose(rig.skeleton);
    spAnimation_mix(rig.animation("rotate"), rig.skeleton, -1, 1, 0, nullptr, nullptr, 0.25f);
    EXPECT_NEAR(rig.bone("b")->rotation, 10 + 15, 1e-4);  // a quarter of 60
    spAnimation_mix(rig.animation("translate"), rig.skeleton, -1, 1, 0, nullptr, nullptr, 0.5f);
    EXPECT_NEAR(rig.bone("b")->x, 5 + 50, 1e-4);
    EXPECT_NEAR(rig.bone("b")->y, 6 - 25, 1e-4);
}

TEST_F(BoneTimelines, LoopTakesTimeWithinOneTurn) {
    spAnimation* rotate = rig.animation("rotate");
    EXPECT_FLOAT_EQ(rotate->duration, 3);
    rig.pose("rotate", 3 + 0.5f, true);
    expectLocal(10 + 30, 5, 6, 2, 1);
    // Zero duration: looping must not divide by it.
    rig.pose("still", 12.5f, true);
    expectLocal(10 + 35, 5, 6, 2, 1);
}

TEST(SpineCurves, PercentFollowsTheSampledBezier) {
    spRotateTimeline* timeline = spRotateTimeline_create(3);
    const float curves[][4] = {{0.25f, 0, 0.75f, 1}, {0.6f, 0.1f, 0.9f, 0.4f}, {0, 1, 0, 1}, {1, 0, 1, 0}};
    for (const auto& c : curves) {
        spCurveTimeline_setCurve(&timeline->super, 0, c[0], c[1], c[2], c[3]);
        for (int i = 0; i <= 40; i++) {
            float p = i / 40.0f;
            EXPECT_NEAR(spCurveTimeline_getCurvePercent(&timeline->super, 0, p), bezierPercent(c[0], c[1], c[2], c[3], p),
                        2e-5)
                << c[0] << "," << c[1] << "," << c[2] << "," << c[3] << " at " << p;
        }
    }
    // Out-of-range percents clamp; the second frame stays linear, a stepped
    // frame gives 0; the last frame has no curve.
    EXPECT_FLOAT_EQ(spCurveTimeline_getCurvePercent(&timeline->super, 0, 2), 1);
    EXPECT_FLOAT_EQ(spCurveTimeline_getCurvePercent(&timeline->super, 1, 0.3f), 0.3f);
    spCurveTimeline_setStepped(&timeline->super, 1);
    EXPECT_FLOAT_EQ(spCurveTimeline_getCurvePercent(&timeline->super, 1, 0.9f), 0);
    EXPECT_EQ(timeline->super.curvesCount, 2);
    spTimeline_dispose(&timeline->super.super);
}
