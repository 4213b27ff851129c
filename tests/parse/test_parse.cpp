// Effect packages from disk to nodes: the parser, slots, the effect queue and
// timed effect nodes, driven as a host would through the facade.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuParseEvent.h"
#include "event/ZuTimeOutEvent.h"
#include "logicsys/ZuLogicMgr.h"
#include "operate/ZuOperateQueue.h"
#include "parse/ZuParse.h"
#include "parse/ZuParseData.h"
#include "parse/ZuParseMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuTimeOutNode.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// An item type of the test: one plain node per item, named after the item.
class StickerData : public ZuParseData {
public:
    explicit StickerData(ZuAppMain* app) : ZuParseData(app) {}
    static ZuParseData* parse(ZuAppMain* app, const rapidjson::Value& value, int, const char*, const char* dir) {
        StickerData* data = new StickerData(app);
        ZuParse::parseBase(data, value, dir);
        return data;
    }
    void generate(int newResUID, const char* sceneName, char*) override {
        resUID = newResUID;
        ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
        ZuNode* node = nodes->getCreator()->createNode("StickerNode", sceneName, name.c_str());
        node->setresUID(resUID);
        node->setZOrder(order);
        _addNode(node);
    }
};

struct StickerNode : public ZuNode {
    explicit StickerNode(ZuAppMain* app) : ZuNode(app) {}
};

class ParseSpy : public ZuEventProc {
public:
    explicit ParseSpy(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event->type == ZU_EVENT_PARSE) {
            auto* parse = static_cast<ZuParseEvent*>(event);
            results.push_back({parse->parsedResUID, parse->success});
        }
        return true;
    }
    std::vector<std::pair<int, bool>> results;
};

class PackageTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        app->addRespath(dir.path().c_str());
        config = nullptr;
        app->initZuBase();
        config = app->getGlobalMgr()->getConfig();
        host = app->getAppInter();
        nodes = app->getGlobalMgr()->getNodeMgr();
        parser = app->getGlobalMgr()->getParseMgr();
        nodes->getCreator()->registCreateFunc("StickerNode", zuCreateNodeOfType<StickerNode>);
        parser->registDictionary("sticker", StickerData::parse);
        spy = new ParseSpy(app);
        app->getGlobalMgr()->getEventMgr()->registProcer(spy);
        host->createLogicSceneFull("s", 64, 64, 64, 64);
        frame();
    }
    void TearDown() override {
        app->getGlobalMgr()->getEventMgr()->unregistProcer(spy);
        spy->release();
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void frame(float delta = 16.0f) {
        app->getGlobalMgr()->update(delta);
        app->directrender("");
    }
    void frames(int count) {
        for (int i = 0; i < count; i++) frame();
    }
    // A package folder under the search path with this config.json.
    std::string package(const std::string& name, const std::string& config) {
        dir.write(name + "/config.json", config);
        return name;
    }
    std::vector<ZuNode*> nodesOf(int resUID) {
        qz::array<ZuNode*> found;
        nodes->getNode("s", resUID, found);
        std::vector<ZuNode*> out;
        for (uint32_t i = 0; i < found.size(); i++) out.push_back(found[i]);
        return out;
    }
    // Runs frames until the load thread has handed back what the queue gave it.
    bool waitFor(const std::function<bool()>& done) {
        for (int i = 0; i < 200; i++) {
            frame();
            if (done()) return true;
            usleep(2000);
        }
        return false;
    }

    TempDir dir;
    ZuAppMain* app = nullptr;
    ZuConfig* config = nullptr;
    ZuAppNative* host = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuParseMgr* parser = nullptr;
    ParseSpy* spy = nullptr;
};

} // namespace

TEST_F(PackageTest, ItemsBecomeNodesUnderThePackageRootInTheScene) {
    std::string path = package("stickers", R"({
        "version": 2, "action": [],
        "param": [
            {"type": "sticker", "id": "a", "order": "5"},
            {"type": "sticker", "id": "b", "name": 7, "order": 9},
            {"type": "nothing-we-know", "id": "c"},
            "not an object",
            {"id": "typeless"}
        ]})");
    LogCapture log;
    host->loadEffect("s", path.c_str(), 42, 1);
    frames(3);
    ASSERT_EQ(spy->results.size(), 1u);
    EXPECT_EQ(spy->results[0], std::make_pair(42, true));
    EXPECT_EQ(log.count("not an object", ZU_LOG_WARN), 1);

    ZuNode* root = nodes->getNode("s42");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getParent(), app->getGlobalMgr()->getSceneMgr()->getScene("s"));
    ASSERT_EQ(root->getChildCount(), 2u);
    ZuNode* a = nodes->getNode("a");
    ZuNode* b = nodes->getNode("b");  // a number for a name: the id stands in
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(a->getZOrder(), 5);
    EXPECT_EQ(b->getZOrder(), 0);  // "order" as a JSON number is ignored
    EXPECT_EQ(a->getParent(), root);
    EXPECT_EQ(a->count(), 2u);  // the registry and the tree
    EXPECT_EQ(nodesOf(42).size(), 3u);  // two stickers and the root
}

TEST_F(PackageTest, BrokenPackagesAreReportedAndLeaveTheEngineRunning) {
    package("empty", "{}");
    package("bad", "{\"param\": [");
    package("list", "[1, 2]");
    package("paramless", R"({"param": {"type": "sticker"}})");
    host->loadEffect("s", "empty", 1, 0);
    host->loadEffect("s", "bad", 2, 1);
    host->loadEffect("s", "missing", 3, 2);
    host->loadEffect("s", "list", 4, 3);
    host->loadEffect("s", "paramless", 5, 4);
    {
        LogCapture quiet;
        frames(3);
    }
    std::vector<std::pair<int, bool>> expected = {{1, true}, {2, false}, {3, false}, {4, true}, {5, true}};
    EXPECT_EQ(spy->results, expected);
    EXPECT_EQ(nodes->size(), 0);  // no item was built, so no package root either
}

TEST_F(PackageTest, LoadsOutsideTheSlotsOrScenesDoNothing) {
    std::string path = package("one", R"({"param": [{"type": "sticker", "id": "x"}]})");
    host->loadEffect("s", path.c_str(), 1, -1);
    host->loadEffect("s", path.c_str(), 2, 1000);
    host->loadEffect("elsewhere", path.c_str(), 3, 0);
    frames(3);
    EXPECT_TRUE(spy->results.empty());
    EXPECT_EQ(nodes->getNode("x"), nullptr);
}

TEST_F(PackageTest, ReloadingIntoASlotUnderTheSameIdReplacesThePackage) {
    std::string path = package("one", R"({"param": [{"type": "sticker", "id": "x"}]})");
    host->loadEffect("s", path.c_str(), 7, 2);
    frames(2);
    ZuNode* first = nodes->getNode("x");
    ASSERT_NE(first, nullptr);
    int firstUid = first->getuid();
    host->loadEffect("s", path.c_str(), 7, 2);
    frames(2);
    std::vector<ZuNode*> now = nodesOf(7);
    EXPECT_EQ(now.size(), 2u);  // one sticker and its root
    EXPECT_EQ(nodes->getNode("x")->getParent(), nodes->getNode("s7"));
    (void)firstUid;

    // Another id into the taken slot leaves the older package standing.
    host->loadEffect("s", path.c_str(), 8, 2);
    frames(2);
    EXPECT_EQ(nodesOf(7).size(), 2u);
    EXPECT_EQ(nodesOf(8).size(), 2u);
    host->delEffect("s", "", 7);
    frames(1);
    EXPECT_TRUE(nodesOf(7).empty());
}

TEST_F(PackageTest, TimeoutsOnlyFromDecimalText) {
    package("t3", R"({"timeout": "3"})");
    package("tnum", R"({"timeout": 3})");
    package("tzero", R"({"timeout": "0"})");
    host->loadEffect("s", "t3", 10, 0);
    host->loadEffect("s", "tnum", 11, 1);
    host->loadEffect("s", "tzero", 12, 2);
    frames(2);
    ASSERT_EQ(nodesOf(10).size(), 2u);
    EXPECT_TRUE(nodesOf(11).empty());
    EXPECT_TRUE(nodesOf(12).empty());
    ZuTimeOutNode* timer = dynamic_cast<ZuTimeOutNode*>(nodes->getNode("timeout"));
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->getTimeOut(), 3);
    // Three seconds and a little: the package removes itself.
    for (int i = 0; i < 35; i++) frame(100.0f);
    EXPECT_TRUE(nodesOf(10).empty());
}

TEST_F(PackageTest, CommonKeysActWhateverTheType) {
    int made = 0;
    static int* counter = nullptr;
    counter = &made;
    struct CameraControlProbe : public ZuNode {
        explicit CameraControlProbe(ZuAppMain* app) : ZuNode(app) { ++*counter; }
    };
    nodes->getCreator()->registCreateFunc("ZuCameraControlFp", zuCreateNodeOfType<CameraControlProbe>);
    std::string path = package("ar", R"({"param": [
        {"type": "unknown", "AR": {"CameraControl": 1}},
        {"type": "unknown", "AR": {"CameraControl": 1}},
        {"type": "unknown", "AR": {"CameraControl": 0}}]})");
    host->loadEffect("s", path.c_str(), 20, 0);
    frames(3);
    EXPECT_EQ(made, 1);
    ASSERT_NE(nodes->getNode("CameraControl"), nullptr);
    EXPECT_EQ(nodes->getNode("CameraControl")->getresUID(), 20);
    EXPECT_EQ(nodes->getNode("CameraControl")->getParent(), nullptr);
}

TEST_F(PackageTest, TheQueuePlaysPackagesOneAfterAnother) {
    config->maxAddQueueNum = 4;  // the default keeps a single waiting effect
    config->playDeltaTime = 0.0f;  // no pause: an effect ended early shows at once
    ZuOperateQueue* queue = app->getGlobalMgr()->getOperateQueue();
    queue->destroy();
    queue->init();
    std::string first = package("q1", R"({"existMode": "timeout", "param": [{"type": "sticker", "id": "q1"}]})");
    std::string second = package("q2", R"({"param": [{"type": "sticker", "id": "q2"}]})");
    host->addEffect("s", first.c_str(), 31, 0);
    host->addEffect("s", second.c_str(), 32, 1);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("q1") != nullptr; }));
    EXPECT_EQ(queue->getExitMode(), "timeout");
    frames(5);
    EXPECT_EQ(nodes->getNode("q2"), nullptr);  // the first has not ended

    // "timeout" ignores animations stopping; its time-out moves the queue on.
    ZuAnimateEvent* stop = new ZuAnimateEvent("s");
    stop->name = "aniStop";
    queue->procEvent(stop);
    stop->release();
    frames(5);
    EXPECT_EQ(nodes->getNode("q2"), nullptr);
    ZuTimeOutEvent* timeout = new ZuTimeOutEvent("s");
    queue->procEvent(timeout);
    timeout->release();
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("q2") != nullptr; }));
    EXPECT_EQ(queue->getExitMode(), "timeoutAndLoop");

    // q2 has no animations: a stop heard from some other effect takes its
    // count below 0 and does not end it; its time-out still does.
    std::string third = package("q3", R"({"param": [{"type": "sticker", "id": "q3"}]})");
    host->addEffect("s", third.c_str(), 35, 4);
    stop = new ZuAnimateEvent("s");
    stop->name = "aniStop";
    queue->procEvent(stop);
    stop->release();
    EXPECT_FALSE(waitFor([&] { return nodes->getNode("q3") != nullptr; }));
    timeout = new ZuTimeOutEvent("s");
    queue->procEvent(timeout);
    timeout->release();
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("q3") != nullptr; }));

    // A package that cannot load does not stall the queue.
    host->addEffect("s", "no-such-package", 33, 2);
    host->addEffect("s", first.c_str(), 34, 3);
    timeout = new ZuTimeOutEvent("s");
    queue->procEvent(timeout);  // q3 ends
    timeout->release();
    {
        LogCapture quiet;
        ASSERT_TRUE(waitFor([&] { return nodesOf(34).size() == 2; }));
    }
}

TEST_F(PackageTest, QueueCapacityAndClearing) {
    config->maxAddQueueNum = 2;
    ZuOperateQueue* queue = app->getGlobalMgr()->getOperateQueue();
    queue->destroy();
    queue->init();
    std::string path = package("p", R"({"param": []})");
    for (int i = 0; i < 4; i++) host->addEffect("s", path.c_str(), 40 + i, i);
    EXPECT_EQ(queue->waiting(), 3u);  // capacity counts one past its number
    host->clearEffectQueue("s", 0);
    EXPECT_EQ(queue->waiting(), 0u);
    frames(2);
    EXPECT_TRUE(queue->isIdle());
}

TEST_F(PackageTest, TimedEffectNodesGoAfterTheirTime) {
    ZuLogicMgr* logic = app->getGlobalMgr()->getLogicMgr();
    ZuNode* flash = new StickerNode(app);
    logic->addEftPackNode(0.5f, flash, "s");
    ZuNode* stray = new StickerNode(app);
    logic->addEftPackNode(0.5f, stray, "nowhere");
    EXPECT_EQ(stray->count(), 1u);  // an unknown scene keeps nothing
    stray->release();
    EXPECT_EQ(flash->getParent(), app->getGlobalMgr()->getSceneMgr()->getScene("s"));
    for (int i = 0; i < 4; i++) frame(100.0f);
    EXPECT_EQ(logic->getEftPackNodeCount(), 1u);
    frame(100.0f);
    EXPECT_EQ(logic->getEftPackNodeCount(), 0u);
    EXPECT_EQ(flash->getParent(), nullptr);
    EXPECT_EQ(flash->count(), 1u);
    flash->release();
}
