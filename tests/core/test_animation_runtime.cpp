// The animation runtime against values worked out by hand on the test
// figure (tests/core/data, authored by tools/meshgen/gen_models.py):
//   Root at the origin; Body at (0, 0.5, 0) under Root; Arm at (0.5, 0.5, 0)
//   under Body, so the arm joint sits at (0.5, 1, 0) in the binding pose.
//   "Wave" (length 2) turns Arm about z: identity at 0, 90 degrees at 1,
//   identity at 2. "Bob" (length 2) moves Body: nothing at 0, up 0.5 and
//   scaled (1, 2, 1) at 1, no frame after 1.
// A point one unit right of the arm joint, (1.5, 1, 0), is followed through
// the arm's offset matrix: the joint plus the arm's turn and scale of (1, 0, 0).
#include "core/Animation.h"
#include "core/AnimationStateSet.h"
#include "core/MeshSerializer.h"
#include "core/Pose.h"
#include "core/Skeleton.h"
#include "core/VertexData.h"
#include "core/ZuOgrePieceModel.h"
#include "core/ZuSubMesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

namespace {

const float kHalf = std::sqrt(0.5f); // cos 45 = sin 45

class FigureRuntime : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(MeshSerializer::loadFile(std::string(QZ_SOURCE_DIR) + "/tests/core/data/figure.mesh", &model));
        model.initAnimationState();
        arm = model.getSkeleton()->getBone("Arm")->getHandle();
    }
    // Plays the named states at their times (weight 1) and returns where the
    // arm's offset matrix takes the point one unit right of the arm joint.
    ZuVec3 armPoint(std::initializer_list<std::pair<const char*, float>> states) {
        for (const auto& s : states) {
            AnimationState* state = model.getAnimationState(s.first);
            state->setEnabled(true);
            state->setTimePosition(s.second);
        }
        model.ApplySkeletonAnimation();
        return model.getBoneMatrices()[arm].transformAffine(ZuVec3(1.5f, 1.0f, 0.0f));
    }
    ZuOgrePieceModel model;
    uint16_t arm = 0;
};

void expectNear(const ZuVec3& got, const ZuVec3& want) {
    EXPECT_NEAR(got.x, want.x, 1e-5f);
    EXPECT_NEAR(got.y, want.y, 1e-5f);
    EXPECT_NEAR(got.z, want.z, 1e-5f);
}

TEST_F(FigureRuntime, BindingPoseGivesIdentityOffsetsAndStatesStartDisabledAndLooping) {
    expectNear(armPoint({}), ZuVec3(1.5f, 1.0f, 0.0f));
    AnimationState* wave = model.getAnimationState("Wave");
    ASSERT_NE(wave, nullptr);
    EXPECT_FALSE(wave->getEnabled());
    EXPECT_TRUE(wave->getLoop());
    EXPECT_EQ(wave->getLength(), 2.0f);
    EXPECT_TRUE(model.getAnimationStateSet().hasAnimationState("Breathe")); // the mesh's own animation
}

TEST_F(FigureRuntime, BoneWorldTransformsAtChosenTimes) {
    // Halfway to the 90-degree frame: 45 degrees about the joint.
    expectNear(armPoint({{"Wave", 0.5f}}), ZuVec3(0.5f + kHalf, 1.0f + kHalf, 0.0f));
    // On the frame: straight up.
    expectNear(armPoint({{"Wave", 1.0f}}), ZuVec3(0.5f, 2.0f, 0.0f));
    // A looping state wraps 3 to 1.
    expectNear(armPoint({{"Wave", 3.0f}}), ZuVec3(0.5f, 2.0f, 0.0f));
}

TEST_F(FigureRuntime, PastTheLastFrameTheTrackBlendsBackToTheFirstAtHalfway) {
    // Bob has frames at 0 and 1 and length 2: at 1.5 the factor is
    // (1.5 - 1) / (2 + 0 - 1) = 0.5 from the frame at 1 towards the one at 0.
    Animation* bob = model.getSkeleton()->_getAnimationImpl("Bob");
    NodeAnimationTrack* track = bob->getNodeTrack(model.getSkeleton()->getBone("Body")->getHandle());
    KeyFrame *k1 = nullptr, *k2 = nullptr;
    EXPECT_FLOAT_EQ(track->getKeyFramesAtTime(bob->_getTimeIndex(1.5f), &k1, &k2), 0.5f);
    EXPECT_EQ(k1->getTime(), 1.0f);
    EXPECT_EQ(k2->getTime(), 0.0f);
    // The same without a key index, through the search over the frames.
    EXPECT_FLOAT_EQ(track->getKeyFramesAtTime(TimeIndex(1.5f), &k1, &k2), 0.5f);
    TransformKeyFrame frame(track, 1.5f);
    track->getInterpolatedKeyFrame(bob->_getTimeIndex(1.5f), &frame);
    EXPECT_FLOAT_EQ(frame.getTranslate().y, 0.25f);
    EXPECT_FLOAT_EQ(frame.getScale().y, 1.5f);
    // Body up 0.25 and 1.5 tall: the joint at (0.5, 0.75 + 0.5 * 1.5), the
    // point's (1, 0, 0) unscaled along x.
    expectNear(armPoint({{"Bob", 1.5f}}), ZuVec3(1.5f, 1.5f, 0.0f));
}

TEST_F(FigureRuntime, TwoEnabledStatesBlendAtHalfWeightEach) {
    // Weights 1 + 1 scale to 1/2 each. Bob at 1, half: up 0.25, scale 1.5 in y.
    // Wave at 1, half: nlerp(0.5, identity, 90) = 45 degrees. Joint at
    // (0.5, 1.5, 0); (1, 0, 0) scaled (1, 1.5, 1) and turned 45 degrees.
    expectNear(armPoint({{"Wave", 1.0f}, {"Bob", 1.0f}}), ZuVec3(0.5f + kHalf, 1.5f + kHalf, 0.0f));
    EXPECT_EQ(model.getAnimationStateSet().getEnableAnimationStateList().size(), 2u);
}

TEST_F(FigureRuntime, QueuedBoneTurnsRunNewestFirstAfterTheAnimation) {
    // Yaw then roll queued: roll (about z) runs first, then yaw (about y),
    // both in world space. Roll 90 takes (1, 0, 0) to (0, 1, 0), which the
    // yaw leaves alone; in the queued order the yaw would take it to
    // (0, 0, -1) and the roll would leave it there.
    model.Yaw("Arm", static_cast<float>(M_PI / 2), Bone::TS_WORLD);
    model.Roll("Arm", static_cast<float>(M_PI / 2), Bone::TS_WORLD);
    model.Yaw("NoSuchBone", 1.0f, Bone::TS_WORLD); // ignored
    model.ApplySkeletonAnimation();
    ZuVec3 p = model.getBoneMatrices()[arm].transformAffine(ZuVec3(1.5f, 1.0f, 0.0f));
    expectNear(p, ZuVec3(0.5f, 2.0f, 0.0f));
    // Operators are used once.
    model.ApplySkeletonAnimation();
    expectNear(model.getBoneMatrices()[arm].transformAffine(ZuVec3(1.5f, 1.0f, 0.0f)), ZuVec3(1.5f, 1.0f, 0.0f));
}

TEST_F(FigureRuntime, PoseAnimationMovesKnownVerticesByInterpolatedInfluences) {
    // Breathe (length 1) on the body: Puff 0 at 0, Puff 1 and Tall 0.5 at 1.
    // At 0.5: Puff at 0.5; Tall, only in the second frame, fades in at 0.5 x 0.5.
    AnimationState* breathe = model.getAnimationState("Breathe");
    breathe->setEnabled(true);
    breathe->setTimePosition(0.5f);
    float out[6 * 3] = {};
    std::map<int, ZuOgrePieceModel::PositionOutput> outputs{{0, {out, 3}}};
    ASSERT_TRUE(model.ApplyVertexAnimation(&outputs));
    VertexData* working = model.getSubMesh(0)->workingVertexData.get();
    const float* pos = reinterpret_cast<const float*>(working->vertexBufferBinding.getBuffer(0)->getData());
    const int stride = 5; // position and texture coordinate
    EXPECT_FLOAT_EQ(pos[0 * stride], -0.25f + -0.1f * 0.5f);
    EXPECT_FLOAT_EQ(pos[1 * stride], 0.25f + 0.1f * 0.5f);
    EXPECT_FLOAT_EQ(pos[4 * stride + 1], 1.0f + 0.3f * 0.25f);
    EXPECT_FLOAT_EQ(pos[2 * stride + 1], 0.5f); // no pose names vertex 2
    EXPECT_FLOAT_EQ(out[4 * 3 + 1], 1.0f + 0.3f * 0.25f);
    // Poses never add up across ticks: the same time gives the same place.
    ASSERT_TRUE(model.ApplyVertexAnimation(&outputs));
    working = model.getSubMesh(0)->workingVertexData.get();
    pos = reinterpret_cast<const float*>(working->vertexBufferBinding.getBuffer(0)->getData());
    EXPECT_FLOAT_EQ(pos[4 * stride + 1], 1.0f + 0.3f * 0.25f);
}

TEST_F(FigureRuntime, PoseBuffersAndBoneBlendBuffers) {
    // Puff moves vertices 0 and 1 of submesh 0 (target 1).
    ASSERT_EQ(model.getPoseBufferSize("Puff", 1), 2);
    const float* puff = model.getPoseBuffer("Puff", 1);
    EXPECT_EQ(puff[0], 0.0f);
    EXPECT_EQ(puff[1], -0.1f);
    EXPECT_EQ(puff[4], 1.0f);
    EXPECT_EQ(model.getPoseBufferSize("Puff", 2), 0);
    EXPECT_EQ(model.getPoseBuffer("Nothing", 1), nullptr);
    // The arm's vertices have two bones (Arm 0.75, Body 0.25): the blend
    // buffer holds their indices as bytes and weights as floats, 0 elsewhere.
    VertexData* arm = model.getSubMesh(1)->workingVertexData.get();
    const VertexElement* idx = arm->vertexDeclaration.findElementBySemantic(VES_BLEND_INDICES);
    const VertexElement* wts = arm->vertexDeclaration.findElementBySemantic(VES_BLEND_WEIGHTS);
    ASSERT_NE(idx, nullptr);
    ASSERT_NE(wts, nullptr);
    // Inserted right behind the position's source run.
    EXPECT_EQ(arm->vertexDeclaration.getElement(2)->semantic, VES_BLEND_INDICES);
    const uint8_t* blend = arm->vertexBufferBinding.getBuffer(idx->source)->getData();
    float w[4];
    std::memcpy(w, blend + 4, 16);
    EXPECT_EQ(blend[0], 2);
    EXPECT_EQ(blend[1], 1);
    EXPECT_FLOAT_EQ(w[0], 0.75f);
    EXPECT_FLOAT_EQ(w[1], 0.25f);
    EXPECT_EQ(w[2], 0.0f);
}

TEST(BoneAssignments, FiveWeightsKeepTheHeaviestFourRescaledAndNoneMeansBoneZero) {
    ZuSubMesh::BoneAssignments a;
    const float weights[5] = {0.5f, 0.2f, 0.1f, 0.1f, 0.1f};
    for (uint16_t b = 0; b < 5; ++b) a.emplace(0u, VertexBoneAssignment_s{0, b, weights[b]});
    EXPECT_EQ(ZuSubMesh::rationaliseBoneAssignments(2, a), 4);
    ASSERT_EQ(a.count(0), 4u);
    float sum = 0.0f;
    for (const auto& e : a) sum += e.second.weight;
    EXPECT_NEAR(sum, 1.0f, 1e-6f);
    EXPECT_FLOAT_EQ(a.find(0)->second.weight, 0.5f / 0.9f);
}

TEST(AnimationStates, TimePositionsLoopClampAndReportChange) {
    AnimationStateSet set;
    AnimationState* s = set.createAnimationState("a", 0.0f, 2.0f);
    EXPECT_TRUE(s->setTimePosition(0.5f));
    EXPECT_FALSE(s->setTimePosition(0.5f)); // the same time again
    EXPECT_TRUE(s->getAnimated());
    s->setTimePosition(0.00005f);
    EXPECT_FALSE(s->getAnimated());
    EXPECT_FLOAT_EQ(s->getTimePosition(), 0.00005f);
    s->setTimePosition(-0.5f);
    EXPECT_FLOAT_EQ(s->getTimePosition(), 1.5f);
    s->setLoop(false);
    s->setTimePosition(-1.0f);
    EXPECT_EQ(s->getTimePosition(), 0.0f);
    s->setTimePosition(5.0f);
    EXPECT_EQ(s->getTimePosition(), 2.0f);
    // Enabled states in the order of enabling; re-enabling moves to the end.
    AnimationState* b = set.createAnimationState("b", 0.0f, 1.0f);
    s->setEnabled(true);
    b->setEnabled(true);
    s->setEnabled(true);
    ASSERT_EQ(set.getEnableAnimationStateList().size(), 2u);
    EXPECT_EQ(set.getEnableAnimationStateList()[0], b);
    // A state created again under the same name replaces the old one.
    set.createAnimationState("b", 0.0f, 3.0f);
    EXPECT_EQ(set.getAnimationState("b")->getLength(), 3.0f);
    EXPECT_EQ(set.getEnableAnimationStateList().size(), 1u);
}

TEST(AnimationTracks, EqualTimesKeepCreationOrder) {
    Animation anim("a", 2.0f);
    NodeAnimationTrack* track = anim.createNodeTrack(0, nullptr);
    track->createNodeKeyFrame(1.0f)->setTranslate(ZuVec3(1, 0, 0));
    track->createNodeKeyFrame(0.0f);
    track->createNodeKeyFrame(1.0f)->setTranslate(ZuVec3(2, 0, 0));
    EXPECT_EQ(track->getNodeKeyFrame(1)->getTranslate().x, 1.0f);
    EXPECT_EQ(track->getNodeKeyFrame(2)->getTranslate().x, 2.0f);
    EXPECT_EQ(anim.getKeyFrameTimes().size(), 2u);
}

} // namespace
