#include "scene/ZuActionMov.h"
#include "scene/ZuActionMoveBy.h"
#include "scene/ZuActionMoveByTime.h"
#include "scene/ZuActionMoveGravity.h"
#include "scene/ZuActionMoveInertia.h"
#include "scene/ZuActionMoveTo.h"
#include "scene/ZuNode.h"
#include "scene/ZuSequanceAction.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Nodes without an engine: actions only need the transform setters.
struct ActionTest : public ::testing::Test {
    void SetUp() override { node = new ZuNode(nullptr); }
    void TearDown() override {
        node->zudestroy();
        node->release();
    }
    // Hands the action to the node, as game code does.
    template <class T> T* give(T* action) {
        node->addAction(action);
        action->release();
        return action;
    }
    ZuNode* node = nullptr;
};

} // namespace

TEST_F(ActionTest, MovReachesTheStopPointExactlyAndClamps) {
    ZuActionMov mov;
    mov.retain();
    mov.setStartPoint(0, 0, 0);
    mov.setStopPoint(30, 40, 0); // 50 units
    mov.setSpeed(100);           // half a second
    EXPECT_FLOAT_EQ(mov.getTotal(), 0.5f);
    mov.run(node, 250.0f);
    EXPECT_FLOAT_EQ(node->getPositionX(), 15.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 20.0f);
    mov.run(node, 250.0f);
    mov.run(node, 1000.0f);
    EXPECT_FLOAT_EQ(node->getPositionX(), 30.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 40.0f);
    // Its end is the base's: a node drops it before running it.
    auto* given = give(new ZuActionMov());
    (void)given;
    node->setPositionX(1, 1, 0);
    node->update(16.0f);
    EXPECT_EQ(node->getActionCount(), 0u);
    EXPECT_FLOAT_EQ(node->getPositionX(), 1.0f);
}

TEST_F(ActionTest, MoveByNormalisesAndMovesPerSecond) {
    auto* by = give(new ZuActionMoveBy());
    by->setDir(3, 4, 0);
    EXPECT_FLOAT_EQ(by->getDir().x, 0.6f);
    EXPECT_FLOAT_EQ(by->getDir().y, 0.8f);
    by->setSpeed(100);
    node->update(500.0f); // 50 units along (0.6, 0.8)
    EXPECT_FLOAT_EQ(node->getPositionX(), 30.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 40.0f);
    node->update(500.0f);
    EXPECT_EQ(node->getActionCount(), 1u); // never ends on its own
}

TEST_F(ActionTest, MoveByTimeHidesTheNodeWhenTimeRunsOut) {
    auto* timed = give(new ZuActionMoveByTime());
    timed->setTime(0.1f);
    node->update(60.0f);
    EXPECT_TRUE(node->isVisible());
    node->update(60.0f);
    EXPECT_FALSE(node->isVisible());
    node->update(60.0f);
    EXPECT_EQ(node->getActionCount(), 0u);

    // Zero time: removed at the first update without a run; the node stays visible.
    node->setVisible(true);
    node->setPositionX(5, 5, 0);
    give(new ZuActionMoveByTime());
    node->update(60.0f);
    EXPECT_EQ(node->getActionCount(), 0u);
    EXPECT_TRUE(node->isVisible());
    EXPECT_FLOAT_EQ(node->getPositionY(), 5.0f);
}

TEST_F(ActionTest, GravityFollowsItsFormulaAndStopsOnTheFloor) {
    auto* throwUp = give(new ZuActionMoveGravity(100, 0, -50));
    node->update(100.0f);
    // 100 * 0.1 - 750 * 0.01 = 2.5
    EXPECT_NEAR(node->getPositionY(), 2.5f, 1e-4);
    // y(t) = 100 t - 750 t^2 falls below -50 between t = 0.3 and t = 0.4.
    node->update(100.0f);
    node->update(100.0f);
    EXPECT_FALSE(throwUp->isEnd());
    node->update(100.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), -50.0f);
    EXPECT_TRUE(throwUp->isEnd());
    node->update(100.0f); // released now
    EXPECT_EQ(node->getActionCount(), 0u);
    EXPECT_FLOAT_EQ(node->getPositionY(), -50.0f);
}

TEST_F(ActionTest, InertiaHasADeadZoneAndLimits) {
    auto* inertia = give(new ZuActionMoveInertia(300, 0));
    node->setPositionX(0, 100, 0);
    inertia->setPitch(3.0f); // exactly on the edge: no motion
    node->update(40.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 100.0f);
    inertia->setPitch(10.0f);
    node->update(40.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 112.0f);
    inertia->setLimit(115.0f, 40.0f);
    node->update(40.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 115.0f);
    inertia->setPitch(-10.0f);
    node->update(1000.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 40.0f);
}

TEST_F(ActionTest, MoveToOvershootsByAtMostOneFrameThenEnds) {
    auto* to = give(new ZuActionMoveTo(ZuVec3(0, 0, 0), ZuVec3(0, 100, 0)));
    to->setSpeed(300);
    int frames = 0;
    while (node->getActionCount() > 0 && frames < 100) {
        node->update(100.0f);
        ++frames;
    }
    EXPECT_EQ(frames, 5); // 30, 60, 90, 120 (ends), then removed
    EXPECT_FLOAT_EQ(node->getPositionY(), 120.0f);

    // Equal ends: a zero direction, no NaN, and the action ends after one run.
    auto* still = give(new ZuActionMoveTo(ZuVec3(7, 7, 0), ZuVec3(7, 7, 0)));
    still->setSpeed(10);
    node->update(100.0f);
    EXPECT_FALSE(std::isnan(node->getPositionX()));
    EXPECT_FLOAT_EQ(node->getPositionX(), 7.0f);
    node->update(100.0f);
    EXPECT_EQ(node->getActionCount(), 0u);
}

TEST_F(ActionTest, SequenceRunsOneActionPerFrameInOrder) {
    auto* up = new ZuActionMoveTo(ZuVec3(0, 0, 0), ZuVec3(0, 10, 0));
    up->setSpeed(200); // 20 per 100 ms: ends after one run
    auto* right = new ZuActionMoveTo(ZuVec3(0, 10, 0), ZuVec3(10, 10, 0));
    right->setSpeed(200);
    auto* down = new ZuActionMoveTo(ZuVec3(10, 10, 0), ZuVec3(10, 0, 0));
    down->setSpeed(200);
    give(new ZuSequanceAction(up, right, down));
    up->release();
    right->release();
    down->release();
    node->update(100.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), 20.0f);
    node->update(100.0f);
    EXPECT_FLOAT_EQ(node->getPositionX(), 20.0f);
    node->update(100.0f);
    EXPECT_FLOAT_EQ(node->getPositionY(), -10.0f);
    node->update(100.0f);
    EXPECT_EQ(node->getActionCount(), 0u);

    // A null member ends the sequence at once and nothing runs.
    auto* lonely = new ZuActionMoveBy();
    give(new ZuSequanceAction(lonely, lonely, nullptr));
    lonely->release();
    node->setPositionX(0, 0, 0);
    node->update(100.0f);
    EXPECT_EQ(node->getActionCount(), 0u);
    EXPECT_FLOAT_EQ(node->getPositionY(), 0.0f);
}

TEST_F(ActionTest, ActionOutlivesTheNodeItRanOnSafely) {
    auto* by = new ZuActionMoveBy();
    node->addAction(by);
    node->update(16.0f);
    // The node goes away mid-way: its reference to the action is dropped.
    node->zudestroy();
    node->release();
    node = new ZuNode(nullptr);
    EXPECT_EQ(by->count(), 1u);
    by->release();
}
