#include "FramePattern.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuAppMainSync.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuAsyncGlobalMgr.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuThread.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuEventProc.h"
#include "event/ZuParseEvent.h"
#include "operate/ZuOperateMgr.h"
#include "platform/ZuContext.h"
#include "platform/ZuEglDisplay.h"
#include "support/EngineFixture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr const char* kScene = "async";
constexpr int kWidth = 96;
constexpr int kHeight = 160;
constexpr int kRgba = 4; // camera host format and output type 1 are both RGBA

// Counts parse outcomes; runs on whichever thread draws the frames.
struct ParseWatch : public ZuEventProc {
    explicit ParseWatch(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event && event->type == ZU_EVENT_PARSE) {
            auto* parsed = static_cast<ZuParseEvent*>(event);
            (parsed->success ? loaded : failed)++;
        }
        if (event && event->type == ZU_EVENT_EFFECT && static_cast<ZuEffectEvent*>(event)->state == 1) ready++;
        return true;
    }
    std::atomic<int> loaded{0};
    std::atomic<int> failed{0};
    std::atomic<int> ready{0}; // a package's nodes have every texture
};

int threadCount() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("Threads:", 0) == 0) return std::stoi(line.substr(8));
    return -1;
}

// One engine that owns its GL, set up the way a host binding does:
// configuration with the camera record, start, context, scene, camera
// background and RGBA read-back, optionally one package.
class AsyncEngine {
public:
    // withScene false stops after the context: a start and stop without
    // any program to compile.
    explicit AsyncEngine(bool threaded, bool withScene = true) : threaded(threaded) {
        app = new ZuAppMainAsync();
        app->setFramePeriodUs(0);
        app->init();
        auto* config = new ZuConfig(app);
        config->init();
        Camera* camera = config->getCamera(kScene);
        camera->width = kWidth;
        camera->height = kHeight;
        camera->angle = 0;
        app->getGlobalMgr()->setConfig(config);
        config->release();
        app->addRespath(sourceAssets().c_str());
        watch = new ParseWatch(app);
        // Started without the thread first, so that the watcher joins the
        // event manager before the frame thread reads its list.
        app->syncInit();
        app->getGlobalMgr()->getEventMgr()->registProcer(watch);
        if (threaded) app->asyncInit();
        app->createOffGLContext(kScene, kWidth, kHeight);
        if (!withScene) {
            settle();
            return;
        }
        ZuAppNative* native = app->getAppInter();
        native->createLogicSceneFull(kScene, kWidth, kHeight, kWidth, kHeight);
        native->createBGNode(kScene, kRgba);
        native->setOutSteamFormate(kScene, 1, true, false);
        // The set-up operations run before the first camera frame arrives.
        settle();
    }
    ~AsyncEngine() { stop(); }

    void stop() {
        if (!app) return;
        // The stop clears the event manager's list, the watcher with it.
        if (threaded)
            app->asyncDestroy();
        else
            app->syncDestroy();
        watch->release();
        app->destroy();
        app->release();
        app = nullptr;
    }

    // Waits until the package's nodes are ready to draw, driving frames in
    // sync mode; false on a failed parse or after two seconds.
    bool load(const std::string& package) {
        app->loadEffect(kScene, package.c_str(), 250, 0);
        for (int i = 0; i < 400 && watch->ready == 0 && watch->failed == 0; ++i) {
            if (!threaded) app->syncRender();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return watch->loaded == 1 && watch->ready == 1;
    }
    // As load, for a colour look: a look's table image decodes in the
    // background after the package is ready, and a frame drawn before it
    // arrives shows the camera picture. Waits until a probe frame comes out
    // changed.
    bool loadLook(const std::string& package, const std::vector<uint8_t>& probe) {
        if (!load(package)) return false;
        for (int i = 0; i < 200; ++i) {
            if (maxByteDifference(process(probe), probe) > 20) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }
    // Lets the frames that follow a push or a set-up run.
    void settle() {
        if (!threaded) {
            for (int i = 0; i < 3; ++i) app->syncRender();
            return;
        }
        app->waitForFrameCount(app->getFrameCount() + 3, 30000);
    }

    // Pushes one frame and returns the picture made from it.
    std::vector<uint8_t> process(const std::vector<uint8_t>& frame) {
        app->pushCameraData(kScene, const_cast<uint8_t*>(frame.data()));
        if (threaded) {
            // A frame under way may have taken the previous picture; the one
            // after it surely takes this one.
            app->waitForFrameCount(app->getFrameCount() + 2, 30000);
        } else {
            app->syncRender();
        }
        std::vector<uint8_t> out(frame.size(), 0);
        app->fetchRenderData(kScene, out.data());
        return out;
    }

    ZuAppMainAsync* app = nullptr;
    ParseWatch* watch = nullptr;
    bool threaded;
};

std::string package(const char* name) { return std::string(QZ_SOURCE_DIR) + "/samples/packages/" + name; }

} // namespace

// The frame thread's pace: a frame longer than the period is followed by
// 1 ms, one of exactly the period by nothing, a short one by the rest; the
// timed loop of ZuThread sleeps up to 1000 / rate ms and not at all at 0.
TEST(AsyncPacing, SleepsFollowThePeriod) {
    EXPECT_EQ(ZuAppMainAsync::sleepAfterFrame(66000, 70000), 1000);
    EXPECT_EQ(ZuAppMainAsync::sleepAfterFrame(66000, 66000), 0);
    EXPECT_EQ(ZuAppMainAsync::sleepAfterFrame(66000, 10000), 56000);
    EXPECT_EQ(ZuThread::sleepAfter(30, 0), 33);
    EXPECT_EQ(ZuThread::sleepAfter(30, 40), 0);
    EXPECT_EQ(ZuThread::sleepAfter(0, 0), 0);
}

// The loop calls start once, process while running, end once, on its own
// thread; destroy joins it and clears the caller's callback record.
TEST(AsyncThread, RunsCallbacksAndClearsThemOnDestroy) {
    struct Counts {
        std::atomic<int> start{0}, process{0}, end{0};
        std::thread::id where;
    } counts;
    _AsyncCallback callbacks;
    callbacks.start = [](void* user) {
        auto* c = static_cast<Counts*>(user);
        c->start++;
        c->where = std::this_thread::get_id();
    };
    callbacks.process = [](void* user) { static_cast<Counts*>(user)->process++; };
    callbacks.end = [](void* user) { static_cast<Counts*>(user)->end++; };
    ZuThread loop;
    loop.setFrameRate(0);
    ASSERT_TRUE(loop.init(&callbacks, &counts));
    EXPECT_FALSE(loop.init(&callbacks, &counts)) << "a second start while running";
    while (counts.process < 5) std::this_thread::yield();
    loop.destroy();
    EXPECT_EQ(counts.start, 1);
    EXPECT_EQ(counts.end, 1);
    EXPECT_NE(counts.where, std::this_thread::get_id());
    EXPECT_EQ(callbacks.process, nullptr);
    EXPECT_EQ(callbacks.start, nullptr);
    EXPECT_EQ(callbacks.end, nullptr);
}

class AsyncEngineTest : public GLTest {};

// A 300-frame clip pushed from a host thread as fast as the pipeline takes
// it: each frame comes out once, in order, equal to what the engine driven
// synchronously makes of the same frame, with a colour look loaded.
TEST_F(AsyncEngineTest, ThreadedClipMatchesSynchronousFrameForFrame) {
    constexpr int kFrames = 300;
    std::vector<std::vector<uint8_t>> expected;
    {
        AsyncEngine sync(false);
        ASSERT_TRUE(sync.loadLook(package("filter_vintage"), patternFrame(0, kWidth, kHeight)));
        for (int i = 0; i < kFrames; ++i) expected.push_back(sync.process(patternFrame(i, kWidth, kHeight)));
    }
    // The look changes the picture, so a pass-through engine cannot match.
    std::vector<uint8_t> first = patternFrame(0, kWidth, kHeight);
    ASSERT_GT(maxByteDifference(expected[0], first), 20);
    for (int i = 1; i < kFrames; ++i) ASSERT_GT(maxByteDifference(expected[i], expected[i - 1]), 20) << i;

    const int threadsBefore = threadCount();
    std::vector<std::vector<uint8_t>> got;
    {
        AsyncEngine threaded(true);
        ASSERT_TRUE(threaded.loadLook(package("filter_vintage"), patternFrame(0, kWidth, kHeight)));
        std::thread host([&] {
            for (int i = 0; i < kFrames; ++i) got.push_back(threaded.process(patternFrame(i, kWidth, kHeight)));
        });
        host.join();
    }
    // Threads of earlier tests may still be ending, never new ones starting.
    EXPECT_LE(threadCount(), threadsBefore) << "the frame thread or the load thread outlived the engine";
    ASSERT_EQ(got.size(), expected.size());
    for (int i = 0; i < kFrames; ++i) ASSERT_LE(maxByteDifference(got[i], expected[i]), 1) << "frame " << i;
}

// Started and stopped 100 times, the threaded engine leaves no thread, no
// display user and no GL object behind (the live-object count is an
// invariant checked at each stop).
TEST_F(AsyncEngineTest, StartAndStopHundredTimesLeavesNothing) {
    const int threadsBefore = threadCount();
    const int displayUsers = ZuEglDisplay::users();
    std::vector<uint8_t> frame = patternFrame(7, kWidth, kHeight);
    // Every 25th round also draws a frame (the others leave out the
    // programs' compilation, which is most of a round's time).
    for (int round = 0; round < 100; ++round) {
        AsyncEngine engine(true, round % 25 == 0);
        ASSERT_GE(engine.app->getFrameCount(), 3u) << "round " << round;
        if (round % 25 != 0) continue;
        std::vector<uint8_t> out = engine.process(frame);
        ASSERT_LE(maxByteDifference(out, flipRows(frame, kWidth)), 1) << "round " << round;
    }
    EXPECT_LE(threadCount(), threadsBefore);
    EXPECT_EQ(ZuEglDisplay::users(), displayUsers);
}

// Misuse is refused with a log line and no crash: a second start, frames
// and calls after the stop, a context asked for while stopping, a frame
// driven before the start.
TEST_F(AsyncEngineTest, MisuseIsRefusedAndLogged) {
    LogCapture log;
    {
        auto* idle = new ZuAppMainAsync();
        idle->init();
        idle->syncRender();
        EXPECT_EQ(idle->getFrameCount(), 0u) << "no frame before the engine started";
        idle->setState("test", ZU_ENG_STATE_STOPPING);
        idle->createOffGLContext(kScene, kWidth, kHeight);
        EXPECT_GE(log.count("createOffGLContext"), 1);
        idle->destroy();
        idle->release();
    }
    AsyncEngine engine(true);
    EXPECT_FALSE(engine.app->asyncInit());
    EXPECT_GE(log.count("already runs"), 1);
    std::vector<uint8_t> frame = patternFrame(3, kWidth, kHeight);
    std::vector<uint8_t> out = engine.process(frame);
    EXPECT_LE(maxByteDifference(out, flipRows(frame, kWidth)), 1);
    engine.app->asyncDestroy();
    EXPECT_FALSE(engine.app->isLoopRunning());
    engine.app->pushCameraData(kScene, frame.data());
    engine.app->createOffGLContext(kScene, kWidth, kHeight);
    engine.app->loadEffect(kScene, package("filter_vintage").c_str(), 250, 0);
    EXPECT_GE(log.count("loadEffect"), 1);
    engine.app->asyncDestroy(); // a second stop is harmless
    EXPECT_FALSE(engine.app->waitForFrameCount(engine.app->getFrameCount() + 1, 50));
}

// The context calls of the host-GL engine are accepted and do nothing: its
// managers own no context.
TEST_F(AsyncEngineTest, SyncEngineIgnoresOffScreenContext) {
    auto* app = new ZuAppMainSync();
    app->init();
    app->initZuBase();
    app->createOffGLContext(kScene, kWidth, kHeight);
    app->update();
    EXPECT_EQ(dynamic_cast<ZuAsyncGlobalMgr*>(app->getGlobalMgr()), nullptr);
    app->destroyOffGLContext(kScene);
    app->update();
    app->setState("test", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
}
