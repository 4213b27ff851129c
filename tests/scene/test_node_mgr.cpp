// The node registry, creation by type name, package roots and timed packages.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuResetTimeStateEvent.h"
#include "event/ZuTimeOutEvent.h"
#include "scene/ZuDummyNode.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuTimeOutNode.h"
#include "scene/ZuVisitCollectAllNode.h"
#include "scene/ZuVisitCollectResID.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Records the life-cycle calls that the creator owes a new node.
struct ProbeNode : public ZuNode {
    explicit ProbeNode(ZuAppMain* app) : ZuNode(app) {}
    void zuinit() override {
        calls.push_back("zuinit");
        resUIDAtInit = m_resUID;
    }
    void testinit() override { calls.push_back("testinit"); }
    std::vector<std::string> calls;
    int resUIDAtInit = -2;
};

// A node whose readiness the test decides.
struct LateNode : public ZuNode {
    explicit LateNode(ZuAppMain* app) : ZuNode(app) { setReady(false); }
    void finish() { setReady(true); }
};

// Keeps the events of one type that reach it.
class EventSpy : public ZuEventProc {
public:
    EventSpy(ZuAppMain* app, int type) : ZuEventProc(app), type(type) {}
    bool procEvent(ZuEvent* event) override {
        if (event->type == type) {
            event->retain();
            seen.push_back(event);
        }
        return true;
    }
    ~EventSpy() override {
        for (ZuEvent* e : seen) e->release();
    }
    int type;
    std::vector<ZuEvent*> seen;
};

class NodeMgrTest : public ::testing::Test {
protected:
    void SetUp() override {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        nodes = app->getGlobalMgr()->getNodeMgr();
        creator = nodes->getCreator();
        creator->registCreateFunc("ProbeNode", zuCreateNodeOfType<ProbeNode>);
        creator->registCreateFunc("LateNode", zuCreateNodeOfType<LateNode>);
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    ZuEventMgr* events() { return app->getGlobalMgr()->getEventMgr(); }
    // Two event passes: events pushed while handling the first are seen in the second.
    void dispatch() {
        events()->update(0);
        events()->update(0);
    }
    ZuNode* probe(const char* name, int resUID = -1) {
        ZuNode* node = creator->createNode("ProbeNode", "s", name);
        node->setresUID(resUID);
        return node;
    }

    ZuAppMain* app = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuNodeCreator* creator = nullptr;
};

} // namespace

TEST_F(NodeMgrTest, CreatorMakesInitialisedNodesThatTheRegistryOwns) {
    EXPECT_EQ(creator->createNode("NoSuchNode", "s", "x"), nullptr);
    EXPECT_FALSE(creator->registCreateFunc("ProbeNode", zuCreateNodeOfType<LateNode>));  // first entry stays
    EXPECT_TRUE(creator->hasType("ZuTimeOutNode"));

    ProbeNode* node = static_cast<ProbeNode*>(creator->createNode("ProbeNode", "s", "first"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->calls, (std::vector<std::string>{"zuinit", "testinit"}));
    EXPECT_EQ(node->getSceneName(), "s");
    EXPECT_EQ(node->getname(), "first");
    EXPECT_EQ(node->count(), 1u);  // the registry's reference only
    EXPECT_EQ(node->getParent(), nullptr);
    EXPECT_EQ(nodes->getNode(node->getuid()), node);
    EXPECT_EQ(nodes->getNode("first"), node);
    EXPECT_FALSE(nodes->addNode(node));  // its uid is taken
    EXPECT_FALSE(nodes->addNode(nullptr));

    ProbeNode* async = static_cast<ProbeNode*>(creator->createNodeAsync("ProbeNode", "s", "a", 0, 12));
    EXPECT_EQ(async->getname(), "s_a_0_12");
    EXPECT_EQ(async->resUIDAtInit, 12);

    ZuNode* ex = creator->createNodeEx("ProbeNode");
    EXPECT_EQ(std::string(ex->getname().c_str()), std::to_string(ex->getuid()) + "_ex");
    EXPECT_EQ(ex->getSceneName(), "");

    creator->unregistCreateFunc("ProbeNode");
    EXPECT_EQ(creator->createNode("ProbeNode", "s", "again"), nullptr);
}

TEST_F(NodeMgrTest, KeysRunInTextOrderAndDeletionLeavesTheTree) {
    std::vector<ZuNode*> made;
    for (int i = 0; i < 12; i++) made.push_back(probe(("n" + std::to_string(i)).c_str(), i % 3 == 0 ? 7 : 1));
    ZuVisitCollectAllNode* all = new ZuVisitCollectAllNode();
    nodes->visit(all);
    ASSERT_EQ(all->getNodes().size(), 12u);
    for (uint32_t i = 1; i < all->getNodes().size(); i++) {
        std::string before = std::to_string(all->getNodes()[i - 1]->getuid());
        std::string after = std::to_string(all->getNodes()[i]->getuid());
        EXPECT_LT(before, after);
    }
    all->release();

    // A deleted node leaves the tree it hung in.
    made[1]->addChild(made[3]);
    made[3]->retain();
    nodes->delNodeByResID(7);  // n0, n3, n6, n9
    EXPECT_EQ(nodes->size(), 8);
    EXPECT_EQ(made[1]->getChildCount(), 0u);
    EXPECT_EQ(made[3]->getParent(), nullptr);
    EXPECT_EQ(made[3]->count(), 1u);  // only this test's
    made[3]->release();

    nodes->delNodeByResID(99);
    EXPECT_EQ(nodes->size(), 8);

    probe("twin");
    probe("twin");
    nodes->delNode("twin");
    EXPECT_EQ(nodes->getNode("twin"), nullptr);
    EXPECT_EQ(nodes->size(), 8);

    int uid = made[2]->getuid();
    nodes->delNode(uid);
    EXPECT_FALSE(nodes->hasNode(uid));
    nodes->delNode(uid);  // unknown now: nothing changes
    EXPECT_EQ(nodes->size(), 7);

    qz::array<ZuNode*> ofPackage;
    nodes->getNode("any scene", 1, ofPackage);
    EXPECT_EQ(ofPackage.size(), 7u);

    ZuVisitCollectResID* ids = new ZuVisitCollectResID(1);
    made[4]->addChild(made[5]);
    made[4]->deepVisit(ids);
    EXPECT_EQ(ids->getResIDs().size(), 2u);
    ids->release();

    nodes->clear();
    EXPECT_EQ(nodes->size(), 0);
}

TEST_F(NodeMgrTest, PackageRootsAreMadeOnceAndReportReadiness) {
    EventSpy* spy = new EventSpy(app, ZU_EVENT_EFFECT);
    events()->registProcer(spy);

    ZuNode* root = nodes->getPackageNode("s", 250);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getname(), "s250");
    EXPECT_EQ(root->getresUID(), 250);
    EXPECT_EQ(nodes->getPackageNode("s", 250), root);
    EXPECT_NE(nodes->getPackageNode("s", 251), root);

    // No children: ready in the first update, and said only once.
    root->update(16);
    root->update(16);
    dispatch();
    ASSERT_EQ(spy->seen.size(), 1u);
    ZuEffectEvent* ready = static_cast<ZuEffectEvent*>(spy->seen[0]);
    EXPECT_EQ(ready->name, "any");
    EXPECT_EQ(ready->sceneName, "s");
    EXPECT_EQ(ready->targetUid, 250);
    EXPECT_EQ(ready->state, 1);

    // A child still loading holds the event back.
    ZuDummyNode* other = static_cast<ZuDummyNode*>(nodes->getPackageNode("s", 251));
    LateNode* late = static_cast<LateNode*>(creator->createNode("LateNode", "s", "late"));
    other->addChild(late);
    other->update(16);
    dispatch();
    EXPECT_EQ(spy->seen.size(), 1u);
    late->finish();
    other->update(16);
    dispatch();
    EXPECT_EQ(spy->seen.size(), 2u);
    other->reset();
    other->update(16);
    dispatch();
    EXPECT_EQ(spy->seen.size(), 3u);

    events()->unregistProcer(spy);
    spy->release();
}

TEST_F(NodeMgrTest, TimedPackagesWaitForTheirTimeAndRunningAnimations) {
    EventSpy* spy = new EventSpy(app, ZU_EVENT_TIMEOUT);
    events()->registProcer(spy);

    ZuTimeOutNode* never = static_cast<ZuTimeOutNode*>(creator->createNode("ZuTimeOutNode", "s", "t0"));
    never->setTimeOut(0);
    for (int i = 0; i < 10; i++) never->update(1000);
    EXPECT_TRUE(never->isVisible());

    ZuTimeOutNode* timer = static_cast<ZuTimeOutNode*>(creator->createNode("ZuTimeOutNode", "s", "t3"));
    timer->setresUID(40);
    timer->setTimeOut(3);
    ZuNode* sticker = probe("sticker", 40);

    // A stall of 2.5 s counts for nothing.
    timer->update(2500);
    EXPECT_EQ(timer->getElapsed(), 0.0f);

    // An animation says it runs; a state for an unknown name other than 1 is not kept.
    ZuResetTimeStateEvent* running = new ZuResetTimeStateEvent("s");
    running->animationName = "wave";
    running->state = 1;
    timer->procEvent(running);
    timer->putResetAnimState("other", 0);
    EXPECT_FALSE(timer->isStopAnim());
    for (int i = 0; i < 4; i++) timer->update(1000);
    EXPECT_TRUE(timer->isVisible());
    dispatch();
    EXPECT_TRUE(spy->seen.empty());

    // The animation ends: the next update hides the node and says time is up.
    running->state = 0;
    timer->procEvent(running);
    running->release();
    EXPECT_TRUE(timer->isStopAnim());
    timer->update(16);
    EXPECT_FALSE(timer->isVisible());
    int stickerUid = sticker->getuid();
    int timerUid = timer->getuid();
    dispatch();  // delivers the time-out; the timer deletes its package
    ASSERT_EQ(spy->seen.size(), 1u);
    EXPECT_EQ(spy->seen[0]->resUID, 40);
    EXPECT_FALSE(nodes->hasNode(stickerUid));
    EXPECT_FALSE(nodes->hasNode(timerUid));
    EXPECT_TRUE(nodes->hasNode(never->getuid()));

    events()->unregistProcer(spy);
    spy->release();
}
