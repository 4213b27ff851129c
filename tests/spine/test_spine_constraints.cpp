// IK, transform and path constraints. Where a constraint is meant to reach
// a point, the check is the reached point itself (the chain's tip or the
// bone's origin), which doesn't depend on how the solver gets there; the
// expected angles are worked out in the comments.
#include "SpineTestSupport.h"

#include <cmath>

using namespace spinetest;

namespace {

const float kS = 0.70710678f;

float tipX(const spBone* bone) { return bone->worldX + bone->a * bone->data->length; }
float tipY(const spBone* bone) { return bone->worldY + bone->c * bone->data->length; }

std::string ikSkeleton(const std::string& ik, const std::string& upperExtra = "", float targetX = 100,
                       float targetY = 100) {
    return R"({"bones": [
      {"name": "root"},
      {"name": "upper", "parent": "root", "length": 100)" + upperExtra + R"(},
      {"name": "lower", "parent": "upper", "x": 100, "length": 100},
      {"name": "hand", "parent": "lower", "x": 100},
      {"name": "target", "parent": "root", "x": )" + std::to_string(targetX) + R"(, "y": )" +
           std::to_string(targetY) + R"(}
    ], "ik": [)" + ik + "]}";
}

} // namespace

TEST(SpineIk, OneBonePointsAtTheTarget) {
    // The parent is turned by 90 degrees, so the arm works in turned space.
    Rig rig;
    ASSERT_TRUE(rig.load(R"({"bones": [
      {"name": "root"},
      {"name": "p", "parent": "root", "x": 10, "rotation": 90},
      {"name": "arm", "parent": "p", "length": 50},
      {"name": "target", "parent": "root", "x": -40, "y": 50}
    ], "ik": [{"name": "aim", "bones": ["arm"], "target": "target"}]})"))
        << rig.error();
    // Target relative to p: (-50, 50), in p's space (50, 50): 45 degrees
    // locally, 135 in the world.
    expectMatrix(rig.bone("arm"), -kS, -kS, kS, -kS, 10, 0);

    spIkConstraint* ik = spSkeleton_findIkConstraint(rig.skeleton, "aim");
    ik->mix = 0.5f;
    spSkeleton_updateWorldTransform(rig.skeleton);
    // Half of the 45 degrees: 22.5 local, 112.5 world.
    EXPECT_NEAR(spBone_getWorldRotationX(rig.bone("arm")), 112.5f, 1e-3);
}

TEST(SpineIk, TwoBonesBendBothWays) {
    // Lengths 100 and 100, target at (100, 100): the elbow is at (100, 0) or
    // (0, 100), the inner angle +90 or -90.
    Rig positive;
    ASSERT_TRUE(positive.load(ikSkeleton(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target"})")))
        << positive.error();
    spBone* upper = positive.bone("upper");
    spBone* lower = positive.bone("lower");
    expectMatrix(upper, 1, 0, 0, 1, 0, 0);
    expectMatrix(lower, 0, -1, 1, 0, 100, 0);
    EXPECT_NEAR(tipX(lower), 100, 1e-3);
    EXPECT_NEAR(tipY(lower), 100, 1e-3);
    // The child hangs on the solved bone: its world is recomputed after IK.
    EXPECT_NEAR(positive.bone("hand")->worldX, 100, 1e-3);
    EXPECT_NEAR(positive.bone("hand")->worldY, 100, 1e-3);

    Rig negative;
    ASSERT_TRUE(negative.load(
        ikSkeleton(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target", "bendPositive": false})")))
        << negative.error();
    expectMatrix(negative.bone("upper"), 0, -1, 1, 0, 0, 0);
    expectMatrix(negative.bone("lower"), 1, 0, 0, 1, 0, 100);
    EXPECT_NEAR(tipX(negative.bone("lower")), 100, 1e-3);
    EXPECT_NEAR(tipY(negative.bone("lower")), 100, 1e-3);
}

TEST(SpineIk, TwoBonesWithMix) {
    Rig rig;
    ASSERT_TRUE(rig.load(ikSkeleton(
        R"({"name": "ik", "bones": ["upper", "lower"], "target": "target", "bendPositive": false, "mix": 0.5})")))
        << rig.error();
    // Halfway from (0, 0) to (90, -90): upper 45, lower -45 (0 in the world).
    expectMatrix(rig.bone("upper"), kS, -kS, kS, kS, 0, 0);
    expectMatrix(rig.bone("lower"), 1, 0, 0, 1, 100 * kS, 100 * kS);
}

TEST(SpineIk, OutOfReachStretchesTowardTheTarget) {
    Rig rig;
    ASSERT_TRUE(rig.load(ikSkeleton(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target"})", "", 0, 300)))
        << rig.error();
    // Straight up, both bones along the line to the target.
    EXPECT_NEAR(spBone_getWorldRotationX(rig.bone("upper")), 90, 1e-3);
    EXPECT_NEAR(spBone_getWorldRotationX(rig.bone("lower")), 90, 1e-3);
    EXPECT_NEAR(tipY(rig.bone("lower")), 200, 1e-3);
}

TEST(SpineIk, TwoBonesUnderUnevenParentScale) {
    // Upper scaled (2, 1), child joint at 50, child length 50, target
    // (100, 50). Distance^2 = 4(50 + 50c)^2 + 2500 s^2 = 12500 gives
    // c = 0: the child turns 90 degrees and the upper bone stays at 0.
    std::string skeleton = R"({"bones": [
      {"name": "root"},
      {"name": "upper", "parent": "root", "scaleX": 2, "length": 50},
      {"name": "lower", "parent": "upper", "x": 50, "length": 50},
      {"name": "target", "parent": "root", "x": 100, "y": 50}
    ], "ik": [{"name": "ik", "bones": ["upper", "lower"], "target": "target" BEND}]})";
    Rig positive;
    std::string text = skeleton;
    text.replace(text.find(" BEND"), 5, "");
    ASSERT_TRUE(positive.load(text)) << positive.error();
    EXPECT_NEAR(positive.bone("upper")->appliedRotation, 0, 1e-3);
    EXPECT_NEAR(positive.bone("lower")->appliedRotation, 90, 1e-3);
    EXPECT_NEAR(tipX(positive.bone("lower")), 100, 1e-3);
    EXPECT_NEAR(tipY(positive.bone("lower")), 50, 1e-3);

    // Bent the other way: c = 0 with the child at -90; the upper bone turns
    // by 2 * atan(50 / 100) = 53.1301 degrees.
    Rig negative;
    text = skeleton;
    text.replace(text.find(" BEND"), 5, ", \"bendPositive\": false");
    ASSERT_TRUE(negative.load(text)) << negative.error();
    EXPECT_NEAR(negative.bone("upper")->appliedRotation, 53.1301f, 1e-3);
    EXPECT_NEAR(negative.bone("lower")->appliedRotation, -90, 1e-3);
    EXPECT_NEAR(tipX(negative.bone("lower")), 100, 1e-3);
    EXPECT_NEAR(tipY(negative.bone("lower")), 50, 1e-3);
}

TEST(SpineIk, TwoBonesWithMirroredParentReachAndBendInTheWorld) {
    // A mirrored upper bone must still reach, with the elbow on the side
    // the bend direction asks for in the world.
    for (const char* extra : {R"(, "scaleX": -1)", R"(, "scaleY": -1)", R"(, "scaleX": -1, "scaleY": -1)"}) {
        for (int bend : {1, -1}) {
            Rig rig;
            std::string ik = std::string(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target", "bendPositive": )") +
                             (bend > 0 ? "true" : "false") + "}";
            ASSERT_TRUE(rig.load(ikSkeleton(ik, extra, 60, 120))) << rig.error();
            spBone* upper = rig.bone("upper");
            spBone* lower = rig.bone("lower");
            EXPECT_NEAR(tipX(lower), 60, 1e-2) << extra << " bend " << bend;
            EXPECT_NEAR(tipY(lower), 120, 1e-2) << extra << " bend " << bend;
            // Turn from the upper segment to the lower one.
            float ux = lower->worldX - upper->worldX, uy = lower->worldY - upper->worldY;
            float cross = ux * (tipY(lower) - lower->worldY) - uy * (tipX(lower) - lower->worldX);
            EXPECT_GT(cross * bend, 0) << extra << " bend " << bend;
        }
    }
}

TEST(SpineIk, MixTimelineBlendsAndBendSteps) {
    Rig rig;
    std::string text = ikSkeleton(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target"})");
    text.insert(text.size() - 1, R"(, "animations": {"a": {"ik": {"ik": [
      {"time": 0, "mix": 1, "bendPositive": true}, {"time": 1, "mix": 0, "bendPositive": false}]}}})");
    ASSERT_TRUE(rig.load(text)) << rig.error();
    spIkConstraint* ik = rig.skeleton->ikConstraints[0];
    rig.pose("a", 0.5f);
    EXPECT_NEAR(ik->mix, 0.5f, 1e-5);
    EXPECT_EQ(ik->bendDirection, 1);  // the bend of the earlier key
    rig.pose("a", 1);
    EXPECT_NEAR(ik->mix, 0, 1e-5);
    EXPECT_EQ(ik->bendDirection, -1);
    // Mix 0 leaves the setup pose.
    expectMatrix(rig.bone("upper"), 1, 0, 0, 1, 0, 0);
    expectMatrix(rig.bone("lower"), 1, 0, 0, 1, 100, 0);
    spSkeleton_setBonesToSetupPose(rig.skeleton);
    EXPECT_EQ(ik->mix, 1);
}

namespace {

// Target: at (100, 50), rotation 90, scale (2, 3): world [0, -3; 2, 0].
std::string transformSkeleton(const std::string& constraint) {
    return R"({"bones": [
      {"name": "root"},
      {"name": "b", "parent": "root"},
      {"name": "t", "parent": "root", "x": 100, "y": 50, "rotation": 90, "scaleX": 2, "scaleY": 3},
      {"name": "bChild", "parent": "b", "x": 10}
    ], "transform": [{"name": "tc", "bones": ["b"], "target": "t", )" +
           constraint + "}]}";
}

} // namespace

TEST(SpineTransformConstraint, RotateMovesTheAngleByTheMix) {
    Rig rig;
    ASSERT_TRUE(rig.load(transformSkeleton(R"("rotation": 10, "translateMix": 0, "scaleMix": 0, "shearMix": 0)")))
        << rig.error();
    // 90 + 10 degrees, length kept.
    float r = 100 * 3.14159265f / 180;
    expectMatrix(rig.bone("b"), std::cos(r), -std::sin(r), std::sin(r), std::cos(r), 0, 0);
    // The child is recomputed after the constraint moved its parent.
    EXPECT_NEAR(rig.bone("bChild")->worldX, 10 * std::cos(r), 1e-3);
    EXPECT_NEAR(rig.bone("bChild")->worldY, 10 * std::sin(r), 1e-3);

    Rig half;
    ASSERT_TRUE(half.load(transformSkeleton(R"("rotateMix": 0.5, "translateMix": 0, "scaleMix": 0, "shearMix": 0)")))
        << half.error();
    expectMatrix(half.bone("b"), kS, -kS, kS, kS, 0, 0);
}

TEST(SpineTransformConstraint, TranslateGoesToTheOffsetInTheTarget) {
    // Offset (10, 0) in the target: [0,-3;2,0]*(10,0) + (100,50) = (100, 70).
    Rig rig;
    ASSERT_TRUE(rig.load(transformSkeleton(R"("x": 10, "rotateMix": 0, "scaleMix": 0, "shearMix": 0)")))
        << rig.error();
    expectMatrix(rig.bone("b"), 1, 0, 0, 1, 100, 70);
    Rig half;
    ASSERT_TRUE(half.load(transformSkeleton(R"("x": 10, "translateMix": 0.5, "rotateMix": 0, "scaleMix": 0, "shearMix": 0)")))
        << half.error();
    expectMatrix(half.bone("b"), 1, 0, 0, 1, 50, 35);
}

TEST(SpineTransformConstraint, ScaleMovesAxisLengths) {
    // Axis lengths 1 and 1 move to (2 + 0.5) and (3 + 0) by half: 1.75, 2.
    Rig rig;
    ASSERT_TRUE(rig.load(transformSkeleton(R"("scaleX": 0.5, "scaleMix": 0.5, "rotateMix": 0, "translateMix": 0, "shearMix": 0)")))
        << rig.error();
    expectMatrix(rig.bone("b"), 1.75f, 0, 0, 2, 0, 0);
}

TEST(SpineTransformConstraint, ShearTurnsTheYAxis) {
    // Target shear 30: its y axis is 120 degrees from its x axis; the bone's
    // is 90, so the y axis turns to 90 + 30 (+ 5 offset), length 1.
    Rig rig;
    std::string text = transformSkeleton(R"("shearY": 5, "rotateMix": 0, "translateMix": 0, "scaleMix": 0)");
    text.replace(text.find("\"scaleY\": 3"), 11, "\"scaleY\": 3, \"shearY\": 30");
    ASSERT_TRUE(rig.load(text)) << rig.error();
    float r = 125 * 3.14159265f / 180;
    expectMatrix(rig.bone("b"), 1, std::cos(r), 0, std::sin(r), 0, 0);
}

TEST(SpineTransformConstraint, MixTimelineBlends) {
    Rig rig;
    std::string text = transformSkeleton(R"("rotateMix": 1)");
    text.insert(text.size() - 1, R"(, "animations": {"a": {"transform": {"tc": [
      {"time": 0}, {"time": 1, "rotateMix": 0, "translateMix": 0.5, "scaleMix": 0.25, "shearMix": 0}]}}})");
    ASSERT_TRUE(rig.load(text)) << rig.error();
    rig.pose("a", 0.5f);
    spTransformConstraint* tc = rig.skeleton->transformConstraints[0];
    EXPECT_NEAR(tc->rotateMix, 0.5f, 1e-5);
    EXPECT_NEAR(tc->translateMix, 0.75f, 1e-5);
    EXPECT_NEAR(tc->scaleMix, 0.625f, 1e-5);
    EXPECT_NEAR(tc->shearMix, 0.5f, 1e-5);
}

namespace {

// A path slot on the root; bones chained from the root. Straight cubic
// curves with handles at thirds run at constant speed, so positions along
// them are exact.
std::string pathSkeleton(const std::string& pathAttachment, const std::string& constraint, int chainBones = 1,
                         float boneLength = 100) {
    std::string bones = R"({"name": "root"})";
    std::string names;
    for (int i = 0; i < chainBones; i++) {
        std::string parent = i == 0 ? "root" : "b" + std::to_string(i - 1);
        bones += R"(, {"name": "b)" + std::to_string(i) + R"(", "parent": ")" + parent + R"(", "rotation": 90, "length": )" +
                 std::to_string(boneLength) + (i ? R"(, "x": )" + std::to_string(boneLength) : "") + "}";
        names += (i ? ", \"b" : "\"b") + std::to_string(i) + "\"";
    }
    return R"({"bones": [)" + bones + R"(],
      "slots": [{"name": "path", "bone": "root", "attachment": "p"}],
      "path": [{"name": "pc", "bones": [)" + names + R"(], "target": "path", )" + constraint + R"(}],
      "skins": {"default": {"path": {"p": )" + pathAttachment + "}}}}";
}

// (0,0) to (300,0).
const char* kLine = R"({"type": "path", "vertexCount": 6, "lengths": [300, 300],
  "vertices": [-100, 0, 0, 0, 100, 0, 200, 0, 300, 0, 400, 0]})";
// (0,0) to (100,0), then up to (100,100).
const char* kCorner = R"({"type": "path", "vertexCount": 9, "lengths": [100, 200, 200],
  "vertices": [-33.333333, 0, 0, 0, 33.333333, 0, 66.666667, 0, 100, 0, 100, 33.333333,
               100, 66.666667, 100, 100, 100, 133.333333]})";
// Closed: (0,0) to (100,0) and back.
const char* kLoop = R"({"type": "path", "closed": true, "vertexCount": 6, "lengths": [100, 200],
  "vertices": [33.333333, 0, 0, 0, 33.333333, 0, 66.666667, 0, 100, 0, 66.666667, 0]})";

} // namespace

TEST(SpinePathConstraint, TangentModeAtPercentAndFixedPositions) {
    Rig rig;
    ASSERT_TRUE(rig.load(pathSkeleton(kLine, R"("position": 0.5)"))) << rig.error();
    expectMatrix(rig.bone("b0"), 1, 0, 0, 1, 150, 0, 1e-3f);

    Rig fixed;
    ASSERT_TRUE(fixed.load(pathSkeleton(kLine, R"("positionMode": "fixed", "position": 75)"))) << fixed.error();
    expectMatrix(fixed.bone("b0"), 1, 0, 0, 1, 75, 0, 1e-3f);

    // Around the corner the tangent points up.
    Rig corner;
    ASSERT_TRUE(corner.load(pathSkeleton(kCorner, R"("positionMode": "fixed", "position": 150)"))) << corner.error();
    expectMatrix(corner.bone("b0"), 0, -1, 1, 0, 100, 50, 1e-3f);
}

TEST(SpinePathConstraint, OpenPathsExtendPastTheEnds) {
    Rig before;
    ASSERT_TRUE(before.load(pathSkeleton(kLine, R"("positionMode": "fixed", "position": -50)"))) << before.error();
    EXPECT_NEAR(before.bone("b0")->worldX, -50, 1e-3);
    Rig after;
    ASSERT_TRUE(after.load(pathSkeleton(kCorner, R"("positionMode": "fixed", "position": 250)"))) << after.error();
    EXPECT_NEAR(after.bone("b0")->worldX, 100, 1e-3);
    EXPECT_NEAR(after.bone("b0")->worldY, 150, 1e-3);
}

TEST(SpinePathConstraint, ClosedPathsWrap) {
    Rig rig;
    ASSERT_TRUE(rig.load(pathSkeleton(kLoop, R"("positionMode": "fixed", "position": 250)"))) << rig.error();
    expectMatrix(rig.bone("b0"), 1, 0, 0, 1, 50, 0, 1e-3f);
    // On the way back the tangent points the other way.
    Rig back;
    ASSERT_TRUE(back.load(pathSkeleton(kLoop, R"("positionMode": "fixed", "position": 150)"))) << back.error();
    expectMatrix(back.bone("b0"), -1, 0, 0, -1, 50, 0, 1e-3f);
}

TEST(SpinePathConstraint, ChainLaysBonesEndToEnd) {
    // Three bones of length 100 standing up are laid along the line.
    Rig rig;
    ASSERT_TRUE(rig.load(pathSkeleton(kLine, R"("rotateMode": "chain")", 3))) << rig.error();
    for (int i = 0; i < 3; i++) {
        std::string name = "b" + std::to_string(i);
        expectMatrix(rig.bone(name.c_str()), 1, 0, 0, 1, 100.0f * i, 0, 1e-3f);
    }
}

TEST(SpinePathConstraint, ChainScaleStretchesToTheSpacing) {
    // Fixed spacing 150 with bones of 100: each is stretched by 1.5.
    Rig rig;
    ASSERT_TRUE(rig.load(pathSkeleton(kLine, R"("rotateMode": "chainScale", "spacingMode": "fixed", "spacing": 150)", 2)))
        << rig.error();
    expectMatrix(rig.bone("b0"), 1.5f, 0, 0, 1, 0, 0, 1e-3f);
    expectMatrix(rig.bone("b1"), 1.5f, 0, 0, 1, 150, 0, 1e-3f);

    // Percent spacing: a quarter of the 300 length.
    Rig percent;
    ASSERT_TRUE(percent.load(pathSkeleton(kLine, R"("rotateMode": "chain", "spacingMode": "percent", "spacing": 0.25)", 2)))
        << percent.error();
    EXPECT_NEAR(percent.bone("b1")->worldX, 75, 1e-3);
}

TEST(SpinePathConstraint, MixesBlendFromThePose) {
    // The bone starts at (0, 0) pointing up; half the way to (150, 0) and
    // half of the turn to 0 degrees.
    Rig rig;
    ASSERT_TRUE(rig.load(pathSkeleton(kLine, R"("position": 0.5, "rotateMix": 0.5, "translateMix": 0.5)"))) << rig.error();
    expectMatrix(rig.bone("b0"), kS, -kS, kS, kS, 75, 0, 1e-3f);
}

TEST(SpinePathConstraint, TimelinesMovePositionSpacingAndMixes) {
    Rig rig;
    std::string text = pathSkeleton(kLine, R"("rotateMode": "chain", "spacingMode": "fixed")", 2);
    text.insert(text.size() - 1, R"(, "animations": {"a": {"paths": {"pc": {
      "position": [{"time": 0, "position": 0}, {"time": 1, "position": 0.5}],
      "spacing": [{"time": 0, "spacing": 0}, {"time": 1, "spacing": 100}],
      "mix": [{"time": 0}, {"time": 1, "rotateMix": 0, "translateMix": 0.5}]}}}})");
    ASSERT_TRUE(rig.load(text)) << rig.error();
    rig.pose("a", 0.5f);
    spPathConstraint* pc = rig.skeleton->pathConstraints[0];
    EXPECT_NEAR(pc->position, 0.25f, 1e-5);
    EXPECT_NEAR(pc->spacing, 50, 1e-4);
    EXPECT_NEAR(pc->rotateMix, 0.5f, 1e-5);
    EXPECT_NEAR(pc->translateMix, 0.75f, 1e-5);
    // First bone: 3/4 of the way to 75; second: to 75 + 50 = 125, from its
    // own setup origin (0, 100).
    EXPECT_NEAR(rig.bone("b0")->worldX, 56.25f, 1e-3);
    EXPECT_NEAR(rig.bone("b1")->worldX, 125 * 0.75f, 1e-3);
    EXPECT_NEAR(rig.bone("b1")->worldY, 100 * 0.25f, 1e-3);
}

TEST(SpineUpdateCache, ConstraintsRunAfterWhatTheyRead) {
    Rig rig;
    ASSERT_TRUE(rig.load(ikSkeleton(R"({"name": "ik", "bones": ["upper", "lower"], "target": "target"})"))) << rig.error();
    const spSkeleton* skeleton = rig.skeleton;
    int ikAt = -1, targetAt = -1, upperAt = -1, handAt = -1, lowerCount = 0;
    for (int i = 0; i < skeleton->updateCacheCount; i++) {
        const spUpdate& u = skeleton->updateCache[i];
        if (u.kind == SP_UPDATE_IK_CONSTRAINT) ikAt = i;
        if (u.kind != SP_UPDATE_BONE) continue;
        const spBone* bone = (const spBone*)u.object;
        std::string name = bone->data->name;
        if (name == "target") targetAt = i;
        if (name == "upper") upperAt = i;
        if (name == "hand") handAt = i;
        if (name == "lower") lowerCount++;
    }
    EXPECT_LT(targetAt, ikAt);
    EXPECT_LT(upperAt, ikAt);
    EXPECT_GT(handAt, ikAt);
    EXPECT_EQ(lowerCount, 0);  // the constraint poses it
}
