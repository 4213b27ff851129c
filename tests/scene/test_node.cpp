#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "scene/ZuActionBase.h"
#include "scene/ZuNode.h"
#include "scene/ZuVisitorBase.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A node that writes its life-cycle calls and walk order into a shared log.
struct TracedNode : public ZuNode {
    TracedNode(ZuAppMain* app, std::string tag, std::vector<std::string>* log)
        : ZuNode(app), tag(std::move(tag)), log(log) {}
    void update(float delta) override {
        ZuNode::update(delta);
        log->push_back("update " + tag);
    }
    void zuenter() override { log->push_back("enter " + tag); }
    void zuexit() override { log->push_back("exit " + tag); }
    std::string tag;
    std::vector<std::string>* log;
};

struct CountingAction : public ZuActionBase {
    explicit CountingAction(int runsBeforeEnd) : left(runsBeforeEnd) {}
    void run(ZuNode* node, float delta) override {
        ++runs;
        --left;
    }
    bool isEnd() override { return left <= 0; }
    int left;
    int runs = 0;
};

class NodeTest : public ::testing::Test {
protected:
    void SetUp() override {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
    }
    void TearDown() override {
        for (ZuNode* n : nodes) {
            n->zudestroy();
            n->release();
        }
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    TracedNode* make(const char* tag) {
        auto* n = new TracedNode(app, tag, &log);
        nodes.push_back(n);
        return n;
    }
    ZuAppMain* app = nullptr;
    std::vector<ZuNode*> nodes;
    std::vector<std::string> log;
};

} // namespace

TEST_F(NodeTest, AddChildIgnoresDuplicatesAndSetsOrderBeforeEnter) {
    TracedNode* root = make("root");
    TracedNode* child = make("child");
    root->addChild(child, 5);
    root->addChild(child);
    root->addChild(nullptr);
    EXPECT_EQ(root->getChildCount(), 1u);
    EXPECT_EQ(child->count(), 2u);
    EXPECT_EQ(child->getZOrder(), 5);
    EXPECT_EQ(log, (std::vector<std::string>{"enter child"}));
    EXPECT_EQ(child->getParent(), root);
}

TEST_F(NodeTest, WalkRunsParentsFirstAndSiblingsByZOrderAfterAnAdd) {
    TracedNode* root = make("root");
    TracedNode* a = make("a");
    TracedNode* b = make("b");
    TracedNode* c = make("c");
    root->addChild(a, 2);
    root->addChild(b, 2);
    root->addChild(c, 1);
    log.clear();
    root->deep_update(16.0f);
    EXPECT_EQ(log, (std::vector<std::string>{"update root", "update c", "update a", "update b"}));

    // Changing a key alone does not resort; the next add does.
    c->setZOrder(9);
    log.clear();
    root->deep_update(16.0f);
    EXPECT_EQ(log[1], "update c");
    TracedNode* d = make("d");
    root->addChild(d, 0);
    log.clear();
    root->deep_update(16.0f);
    std::vector<std::string> expected{"update root", "update d", "update a", "update b", "update c"};
    EXPECT_EQ(log, expected);
}

TEST_F(NodeTest, ClearChildExitsEveryNodeParentsFirst) {
    TracedNode* root = make("root");
    TracedNode* mid = make("mid");
    TracedNode* leaf = make("leaf");
    root->addChild(mid);
    mid->addChild(leaf);
    log.clear();
    root->clearChild();
    EXPECT_EQ(log, (std::vector<std::string>{"exit mid", "exit leaf"}));
    EXPECT_EQ(mid->getParent(), nullptr);
    EXPECT_EQ(leaf->getParent(), nullptr);
    EXPECT_EQ(mid->count(), 1u);
}

TEST_F(NodeTest, RemoveChildKeepsGrandchildrenAndReportsStrangers) {
    TracedNode* root = make("root");
    TracedNode* mid = make("mid");
    TracedNode* leaf = make("leaf");
    root->addChild(mid);
    mid->addChild(leaf);
    EXPECT_TRUE(root->removeChild(mid));
    EXPECT_FALSE(root->removeChild(mid));
    EXPECT_EQ(mid->getChildCount(), 1u);
    mid->setresUID(42);
    root->addChild(mid);
    EXPECT_TRUE(root->removeChild(42));
    EXPECT_TRUE(leaf->removeFromParent());
    EXPECT_FALSE(leaf->removeFromParent());
}

TEST_F(NodeTest, TransformAppliesOnNextUpdateAndComposesWithParent) {
    TracedNode* root = make("root");
    TracedNode* child = make("child");
    root->addChild(child);
    root->setPositionX(100, 50, 0);
    root->setRotationX(0, 0, 90);
    child->setPositionX(10, 0, 0);
    EXPECT_FLOAT_EQ(root->getMat()[12], 0.0f); // not yet
    root->deep_update(16.0f);
    EXPECT_FLOAT_EQ(root->getMat()[12], 100.0f);
    // The child's origin (10, 0) turns by 90 degrees to (0, 10), then moves by (100, 50).
    ZuVec3 p = child->getAbsoluteMat().transformPoint(ZuVec3(0, 0, 0));
    EXPECT_NEAR(p.x, 100.0f, 1e-4);
    EXPECT_NEAR(p.y, 60.0f, 1e-4);
}

TEST_F(NodeTest, ActionsRunUntilEndThenAreReleasedNextUpdate) {
    TracedNode* node = make("n");
    auto* action = new CountingAction(2);
    node->addAction(action);
    node->addAction(nullptr);
    EXPECT_EQ(node->getActionCount(), 1u);
    node->update(16.0f);
    node->update(16.0f);
    EXPECT_EQ(action->runs, 2);
    EXPECT_EQ(node->getActionCount(), 1u);
    node->update(16.0f); // ended: released without another run
    EXPECT_EQ(action->runs, 2);
    EXPECT_EQ(node->getActionCount(), 0u);
    EXPECT_EQ(action->count(), 1u);
    action->release();
}

TEST_F(NodeTest, UidsAreUniqueAndTheLastFreedIsReusedFirst) {
    auto* a = new ZuNode(app);
    auto* b = new ZuNode(app);
    EXPECT_NE(a->getuid(), b->getuid());
    EXPECT_GE(a->getuid(), 0);
    int freed = b->getuid();
    b->release();
    auto* c = new ZuNode(app);
    EXPECT_EQ(c->getuid(), freed);
    a->release();
    c->release();
}

TEST_F(NodeTest, ListeningNodeGetsEventsAndZudestroyUnregisters) {
    struct Listener : public ZuNode {
        explicit Listener(ZuAppMain* app) : ZuNode(app) {}
        bool procEvent(ZuEvent* event) override {
            ++seen;
            return true;
        }
        int seen = 0;
    };
    auto* node = new Listener(app);
    node->listenEvent();
    ZuEventMgr* events = app->getGlobalMgr()->getEventMgr();
    events->pushEventToSecondPool(new ZuEvent("s"));
    app->update();
    EXPECT_EQ(node->seen, 1);
    node->zudestroy();
    EXPECT_FALSE(events->hasRegist(node));
    EXPECT_EQ(node->count(), 1u);
    node->release();
}

TEST_F(NodeTest, VisitIsPreOrder) {
    struct Names : public ZuVisitorBase {
        void visit(ZuNode* node) override { order += static_cast<TracedNode*>(node)->tag; }
        std::string order;
    };
    TracedNode* r = make("r");
    TracedNode* a = make("a");
    TracedNode* b = make("b");
    TracedNode* c = make("c");
    r->addChild(a);
    a->addChild(c);
    r->addChild(b);
    Names names;
    r->deepVisit(&names);
    EXPECT_EQ(names.order, "racb");
}
