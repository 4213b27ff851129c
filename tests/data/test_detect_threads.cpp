// Face records pushed from host threads while the render thread ticks: the
// generators' locks, the persons they notify and the events those persons
// raise must hold together (run under ThreadSanitizer in CI), no record may
// be torn, and switching the back end mid-stream must not deadlock.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "support/GLTest.h"
#include "support/WireRecord.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

// One face whose every landmark sits at (x, x + 1): a torn record would mix
// two pushes' values.
WireRecord faceRecord(DETECTTYPE type, float x) {
    WireRecord r;
    r.i32(1);
    r.f32(0.0f);
    r.f32(0.0f);
    r.f32(0.0f);
    for (int v : {100, 100, 300, 300}) r.i32(v);
    const int points = type == DETECTTYPE_AS ? 101 : 106;
    for (int i = 0; i < points; ++i) {
        if (type == DETECTTYPE_FP) {
            r.f32(x);
            r.f32(x + 1.0f);
        } else {
            r.i32(static_cast<int32_t>(x));
            r.i32(static_cast<int32_t>(x) + 1);
        }
    }
    if (type == DETECTTYPE_AS) {
        r.i32(1);
        for (int k = 0; k < 24; ++k) r.bytes.push_back(0);
        for (int k = 0; k < 48 + 101 * 3; ++k) r.f32(0.0f);
    }
    return r;
}

class DetectThreads : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        app->getAppInter()->createLogicSceneFull("cam", 64, 64, 64, 64);
        tick();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void tick() {
        app->update();
        app->directrender("");
    }
    // Host threads push records of type while this thread ticks.
    void pushFromHosts(DETECTTYPE type, int threads, int pushes) {
        std::atomic<int> running{threads};
        std::vector<std::thread> hosts;
        for (int t = 0; t < threads; ++t)
            hosts.emplace_back([this, type, t, pushes, &running] {
                for (int i = 0; i < pushes; ++i) {
                    WireRecord r = faceRecord(type, 200.0f + t * 10.0f + (i % 5));
                    app->getAppInter()->setDetectData("cam", r.bytes.data(), r.size());
                }
                --running;
            });
        while (running > 0) {
            tick();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        for (std::thread& host : hosts) host.join();
        tick();
    }
    ZuPerson* firstPerson() { return app->getGlobalMgr()->getPersonSys()->getPerson("cam", 1); }

    ZuAppMain* app = nullptr;
};

} // namespace

TEST_F(DetectThreads, RecordsFromHostThreadsArriveWholeWhileTheRenderThreadTicks) {
    for (DETECTTYPE type : {DETECTTYPE_FP, DETECTTYPE_AS}) {
        app->getAppInter()->setDetectType(type);
        tick();
        pushFromHosts(type, 3, 60);
        ZuPerson* person = firstPerson();
        ASSERT_NE(person, nullptr);
        EXPECT_EQ(person->getExistState(), 1) << type;
        // Every landmark of the face comes from the same push.
        const float x = person->getFaceDataX(0);
        for (int i = 1; i < person->getFacePtNum(); ++i) {
            ASSERT_EQ(person->getFaceDataX(i), x) << "type " << type << ", landmark " << i;
            ASSERT_EQ(person->getFaceDataY(i), person->getFaceDataY(0)) << "type " << type << ", landmark " << i;
        }
    }
}

TEST_F(DetectThreads, SwitchingTheBackEndWhileHostsPushDoesNotDeadlock) {
    app->getAppInter()->setDetectType(DETECTTYPE_FP);
    tick();
    std::atomic<bool> stop{false};
    std::thread host([&] {
        int i = 0;
        while (!stop) {
            WireRecord r = faceRecord(DETECTTYPE_FP, 150.0f + (i++ % 7));
            app->getAppInter()->setDetectData("cam", r.bytes.data(), r.size());
        }
    });
    for (int round = 0; round < 20; ++round) {
        app->getAppInter()->setDetectType(round % 2 ? DETECTTYPE_FP : DETECTTYPE_AS);
        tick();
    }
    stop = true;
    host.join();
    app->getAppInter()->setDetectType(DETECTTYPE_FP);
    tick();
    tick();
    ZuPerson* person = firstPerson();
    ASSERT_NE(person, nullptr);
    EXPECT_EQ(person->getDetectType(), DETECTTYPE_FP);
}
