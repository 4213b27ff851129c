// The threaded engine at a phone's 720 x 1280: the latency from a host's
// push of an NV21 frame to the fetch of the RGBA picture made from it, and
// what one push costs the host's own thread (a copy into the camera swap).

#include "basesys/Camera.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

namespace {

constexpr const char* kScene = "bench";
constexpr int kWidth = 720;
constexpr int kHeight = 1280;

struct ThreadedEngine {
    ThreadedEngine() {
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
        app->addRespath(QZ_BENCH_ASSETS);
        app->asyncInit();
        app->createOffGLContext(kScene, kWidth, kHeight);
        ZuAppNative* native = app->getAppInter();
        native->createLogicSceneFull(kScene, kWidth, kHeight, kWidth, kHeight);
        native->createBGNode(kScene, 0); // NV21, as phone cameras give it
        native->setOutSteamFormate(kScene, 1, true, false);
        app->waitForFrameCount(3, 5000);
        // The first frames with a picture compile the programs.
        std::vector<uint8_t> warm(static_cast<size_t>(kWidth) * kHeight * 3 / 2, 128);
        for (int i = 0; i < 3; ++i) {
            app->pushCameraData(kScene, warm.data());
            app->waitForFrameCount(app->getFrameCount() + 2, 10000);
        }
    }
    ~ThreadedEngine() {
        app->asyncDestroy();
        app->destroy();
        app->release();
    }
    ZuAppMainAsync* app;
};

std::vector<uint8_t> nv21Frame(int index) {
    std::vector<uint8_t> frame(static_cast<size_t>(kWidth) * kHeight * 3 / 2);
    for (size_t i = 0; i < frame.size(); ++i) frame[i] = static_cast<uint8_t>((i * 7 + index * 13) >> 4);
    return frame;
}

void BM_ThreadedPushToFetch(benchmark::State& state) {
    ThreadedEngine engine;
    std::vector<uint8_t> out(static_cast<size_t>(kWidth) * kHeight * 4);
    std::vector<uint8_t> frames[2] = {nv21Frame(0), nv21Frame(1)};
    int index = 0;
    for (auto _ : state) {
        std::vector<uint8_t>& frame = frames[index++ & 1];
        engine.app->pushCameraData(kScene, frame.data());
        // A frame under way may hold the previous picture; the next one has this.
        if (!engine.app->waitForFrameCount(engine.app->getFrameCount() + 2, 5000)) {
            state.SkipWithError("the frame thread stalled");
            break;
        }
        engine.app->fetchRenderData(kScene, out.data());
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ThreadedPushToFetch)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

// The host thread's cost of one push while the frame thread draws; pushes
// are paced at 30 a second as a camera delivers them.
void BM_ThreadedHostPushCost(benchmark::State& state) {
    ThreadedEngine engine;
    std::vector<uint8_t> frame = nv21Frame(2);
    for (auto _ : state) {
        auto begin = std::chrono::steady_clock::now();
        engine.app->pushCameraData(kScene, frame.data());
        auto end = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(end - begin).count());
        std::this_thread::sleep_for(std::chrono::milliseconds(33));
    }
}
BENCHMARK(BM_ThreadedHostPushCost)->UseManualTime()->Iterations(60)->Unit(benchmark::kMicrosecond);

} // namespace
