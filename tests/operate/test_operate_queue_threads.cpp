// The effect queue takes effects from any thread while the render thread
// hands them out; nothing is lost or handed out twice.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuTimeOutEvent.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

// Counts the effects that the load thread runs.
class CountedLoad : public ZuOpLoadBase {
public:
    CountedLoad(ZuAppMain* app, std::atomic<int>* runs) : ZuOpLoadBase(app), runs(runs) {}
    void process(float) override { runs->fetch_add(1); }
    std::atomic<int>* runs;
};

} // namespace

TEST(OperateQueueThreads, EffectsAddedFromManyThreadsAreEachHandedOutOnce) {
    ZuAppMain* app = new ZuAppMain();
    app->init();
    app->initZuBase();
    ZuGlobalMgr* global = app->getGlobalMgr();
    global->getConfig()->maxAddQueueNum = 1000;
    ZuOperateQueue* queue = global->getOperateQueue();
    queue->destroy();
    queue->init();

    std::atomic<int> runs{0};
    const int kThreads = 4, kEach = 25;
    std::vector<std::thread> hosts;
    for (int t = 0; t < kThreads; t++)
        hosts.emplace_back([&] {
            for (int i = 0; i < kEach; i++) {
                CountedLoad* op = new CountedLoad(app, &runs);
                queue->addOperate(op);
                op->release();
            }
        });
    // The render thread: each frame ends the playing effect and ticks.
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (runs.load() < kThreads * kEach && std::chrono::steady_clock::now() < deadline) {
        ZuTimeOutEvent* end = new ZuTimeOutEvent("");
        queue->procEvent(end);
        end->release();
        queue->update(16.0f);
        global->getOperateMgr()->update(16.0f);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (std::thread& t : hosts) t.join();
    EXPECT_EQ(runs.load(), kThreads * kEach);
    EXPECT_EQ(queue->waiting(), 0u);

    app->setState("test", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
}
