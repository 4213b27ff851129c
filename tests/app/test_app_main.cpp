#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"
#include "support/GLTest.h"

#include <algorithm>

#include <string>
#include <vector>

namespace {

// Sees the delta that each frame passes to the managers.
struct DeltaProbe : public ZuOperateBase {
    DeltaProbe(ZuAppMain* app, std::vector<float>* deltas) : ZuOperateBase(app), deltas(deltas) {}
    void process(float delta) override { deltas->push_back(delta); }
    std::vector<float>* deltas;
};

// A clock the test steps by hand.
struct ManualClock {
    ZuAppMain::WallTime now{1000, 0};
    void advanceMicros(int64_t micros) {
        now.micros += micros;
        now.seconds += now.micros / 1000000;
        now.micros %= 1000000;
    }
};

class AppMainTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->setClock([this] { return clock.now; });
        app->init();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    float tickAndGetDelta() {
        std::vector<float> deltas;
        auto* probe = new DeltaProbe(app, &deltas);
        app->getGlobalMgr()->getOperateMgr()->pushOperate(probe);
        probe->release();
        app->update();
        return deltas.empty() ? -1.0f : deltas[0];
    }
    ZuAppMain* app = nullptr;
    ManualClock clock;
};

} // namespace

TEST_F(AppMainTest, StateMachineGuardsStartAndStop) {
    EXPECT_EQ(app->getState(), ZU_ENG_STATE_STOPPED);
    app->update(); // state 0: nothing, and no crash without managers
    app->initZuBase();
    EXPECT_EQ(app->getState(), ZU_ENG_STATE_RUNNING);
    ZuEventMgr* events = app->getGlobalMgr()->getEventMgr();
    app->initZuBase(); // running: the second call builds nothing new
    EXPECT_EQ(app->getGlobalMgr()->getEventMgr(), events);
    app->destroyZuBase(); // only from state 2
    EXPECT_EQ(app->getState(), ZU_ENG_STATE_RUNNING);
    EXPECT_NE(app->getGlobalMgr()->getEventMgr(), nullptr);
}

TEST_F(AppMainTest, FrameDeltaStartsAtPoint033ThenFollowsTheClock) {
    app->initZuBase();
    EXPECT_FLOAT_EQ(tickAndGetDelta(), 0.033f);
    clock.advanceMicros(16667);
    EXPECT_NEAR(tickAndGetDelta(), 16.667f, 1e-3);
    clock.advanceMicros(2500000); // a long pause is not clamped
    EXPECT_NEAR(tickAndGetDelta(), 2500.0f, 1e-2);
    app->setFirstGetDert(true);
    clock.advanceMicros(999999);
    EXPECT_FLOAT_EQ(tickAndGetDelta(), 0.033f);

    // In state 2 update does nothing and leaves the clock alone.
    app->setState("test", ZU_ENG_STATE_STOPPING);
    clock.advanceMicros(5000);
    app->update();
    app->setState("test", ZU_ENG_STATE_RUNNING);
    clock.advanceMicros(5000);
    EXPECT_NEAR(tickAndGetDelta(), 10.0f, 1e-3);
}

TEST_F(AppMainTest, ManagersComeUpAndGoDownInTheirOrder) {
    std::vector<std::string> built, destroyed;
    app->getGlobalMgr()->setLifecycleObserver([&](const char* name, bool up) {
        (up ? built : destroyed).push_back(name);
    });
    // The full start-up order; managers that are not part of the engine yet
    // are simply absent from what is observed.
    const std::vector<std::string> startOrder = {
        "ZuConfig", "ZuOperateMgr", "ZuPboMgr", "ZuFboMgr", "ZuDiySys", "ZuEventMgr", "ZuDataMgr",
        "ZuTouchMgr", "ZuParseMgr", "ZuMeshDataMgr", "ZuPersonSys", "ZuNodeMgr", "ZuSceneMgr",
        "ZuLogicMgr", "ZuShaderMgr", "ZuTexMgr", "ZuRenderMgr", "ZuDetectMgr", "ZuOperateQueue",
        "ZuSkeletonPool", "ZuBasicSys", "ZuGifMgr"};
    const std::vector<std::string> stopOrder = {
        "ZuOperateMgr", "ZuDiySys", "ZuDetectMgr", "ZuNodeMgr", "ZuSceneMgr", "ZuTouchMgr", "ZuLogicMgr",
        "ZuRenderMgr", "ZuTexMgr", "ZuGifMgr", "ZuShaderMgr", "ZuPersonSys", "ZuParseMgr", "ZuPboMgr",
        "ZuFboMgr", "ZuDataMgr", "ZuOperateQueue", "ZuEventMgr", "ZuConfig", "ZuMeshDataMgr",
        "ZuSkeletonPool", "ZuBasicSys"};
    auto isSubsequence = [](const std::vector<std::string>& part, const std::vector<std::string>& whole) {
        size_t at = 0;
        for (const std::string& name : part) {
            while (at < whole.size() && whole[at] != name) ++at;
            if (at == whole.size()) return false;
            ++at;
        }
        return true;
    };

    for (int round = 0; round < 2; ++round) { // and again after a restart
        built.clear();
        destroyed.clear();
        app->initZuBase();
        EXPECT_GE(built.size(), 5u);
        EXPECT_TRUE(isSubsequence(built, startOrder)) << testing::PrintToString(built);
        for (int i = 0; i < 10; ++i) app->update();
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        EXPECT_EQ(app->getState(), ZU_ENG_STATE_STOPPED);
        EXPECT_TRUE(isSubsequence(destroyed, stopOrder)) << testing::PrintToString(destroyed);
        // Everything built was torn down.
        std::vector<std::string> a = built, b = destroyed;
        std::sort(a.begin(), a.end());
        std::sort(b.begin(), b.end());
        EXPECT_EQ(a, b);
        EXPECT_EQ(app->getGlobalMgr()->getEventMgr(), nullptr);
        EXPECT_NE(app->getGlobalMgr()->getFileMgr(), nullptr); // outlives the rest
    }
}

TEST_F(AppMainTest, ConfigSetBeforeStartIsKept) {
    auto* config = new ZuConfig(app);
    config->init();
    config->glversion = 0x30002;
    app->getGlobalMgr()->setConfig(config);
    config->release();
    app->initZuBase();
    EXPECT_EQ(app->getGlobalMgr()->getConfig(), config);
}

TEST_F(AppMainTest, OperationsAndEventsFlowThroughTheFrame) {
    struct Receiver : public ZuEventProc {
        explicit Receiver(ZuAppMain* app) : ZuEventProc(app) {}
        bool procEvent(ZuEvent*) override {
            ++count;
            return true;
        }
        int count = 0;
    };
    // An operation raising an event in step 2 of a frame: the event manager
    // runs later in the same frame, but the event sits in the write pool, so
    // it is delivered one frame later.
    struct Raise : public ZuOperateBase {
        explicit Raise(ZuAppMain* app) : ZuOperateBase(app) {}
        void process(float) override { app->getGlobalMgr()->getEventMgr()->pushEvent(new ZuEvent("s")); }
    };
    app->initZuBase();
    auto* receiver = new Receiver(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(receiver);
    auto* raise = new Raise(app);
    app->getGlobalMgr()->getOperateMgr()->pushOperate(raise);
    raise->release();
    app->update();
    EXPECT_EQ(receiver->count, 0);
    app->update();
    EXPECT_EQ(receiver->count, 1);
    receiver->release();
}
