// Skeletal face stickers on the CPU: 20 stickers of 60 bones each, five on
// each of four tracked faces, through whole engine ticks (persons, events,
// node updates and the recording of their draw commands; the replay is the
// GPU's and is left out of the timing). Heap calls are counted: those of a
// whole tick, and those of a playing sticker's own update.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "logicsys/Animate2D/ZuSpine.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "platform/ZuHeadlessContext.h"
#include "render/texture/ZuPngWriter.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "spine/spAllocator.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <unistd.h>
#include <vector>

namespace {
std::atomic<long> g_heapCalls{0};
void* countingMalloc(size_t size) {
    g_heapCalls.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size ? size : 1);
}
} // namespace

// Every C++ allocation of the program passes here, the engine's included.
void* operator new(size_t size) {
    g_heapCalls.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, size_t) noexcept { std::free(p); }

namespace {

const int kSize = 720;
const int kBones = 60;
const int kStickers = 20;
const int kFaces = 4;

// A tree of 60 bones (each the child of bone (i - 1) / 2), a quad on every
// other bone, and a looping clip that turns every bone.
std::string skeletonJson() {
    std::string bones = "{\"name\": \"b0\"}", slots, skin, timelines;
    char text[256];
    for (int i = 1; i < kBones; ++i) {
        snprintf(text, sizeof text, ", {\"name\": \"b%d\", \"parent\": \"b%d\", \"x\": %d, \"length\": 20}", i,
                 (i - 1) / 2, 10 + i % 7);
        bones += text;
    }
    for (int i = 0; i < kBones; i += 2) {
        snprintf(text, sizeof text, "%s{\"name\": \"s%d\", \"bone\": \"b%d\", \"attachment\": \"dot\"}",
                 i ? ", " : "", i, i);
        slots += text;
        snprintf(text, sizeof text, "%s\"s%d\": {\"dot\": {\"width\": 24, \"height\": 24}}", i ? ", " : "", i);
        skin += text;
    }
    for (int i = 0; i < kBones; ++i) {
        snprintf(text, sizeof text,
                 "%s\"b%d\": {\"rotate\": [{\"time\": 0, \"angle\": 0}, {\"time\": 0.5, \"angle\": %d},"
                 " {\"time\": 1, \"angle\": 0}]}",
                 i ? ", " : "", i, 10 + i % 20);
        timelines += text;
    }
    return "{\"skeleton\": {\"hash\": \"bench\", \"spine\": \"1.0\"}, \"bones\": [" + bones + "], \"slots\": [" +
           slots + "], \"skins\": {\"default\": {" + skin + "}}, \"animations\": {\"animation\": {\"bones\": {" +
           timelines + "}}}}";
}

std::string writeFiles(ZuAppMain* app) {
    char pattern[] = "/tmp/qzbench-XXXXXX";
    const char* made = mkdtemp(pattern);
    if (!made) return "";
    const std::string dir = std::string(made) + "/";
    std::vector<unsigned char> pixels(32 * 32 * 4, 255);
    ZuPngWriter writer(app);
    writer.write((dir + "dot.png").c_str(), 32, 32, pixels.data());
    FILE* atlas = fopen((dir + "dots.atlas").c_str(), "w");
    FILE* json = fopen((dir + "dots.json").c_str(), "w");
    if (!atlas || !json) return "";
    fputs("dot.png\nsize: 32,32\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\ndot\n  rotate: false\n"
          "  xy: 0, 0\n  size: 32, 32\n  orig: 32, 32\n  offset: 0, 0\n  index: -1\n",
          atlas);
    fputs(skeletonJson().c_str(), json);
    fclose(atlas);
    fclose(json);
    return dir;
}

// Four FP faces side by side (camera pixels, y down).
std::vector<uint8_t> fourFaces() {
    std::vector<uint8_t> bytes;
    auto put = [&bytes](const void* value) {
        const uint8_t* b = static_cast<const uint8_t*>(value);
        bytes.insert(bytes.end(), b, b + 4);
    };
    int32_t count = kFaces;
    put(&count);
    for (int f = 0; f < kFaces; ++f) {
        float angles[3] = {0, 0, 0};
        for (float& a : angles) put(&a);
        const float ox = 90.0f + 180.0f * f, oy = 360.0f;
        int32_t rect[4] = {static_cast<int32_t>(ox) - 80, 280, static_cast<int32_t>(ox) + 80, 440};
        for (int32_t& r : rect) put(&r);
        for (int i = 0; i < 106; ++i) {
            // An oval of points around the face centre, eyes level.
            float x = ox + 70.0f * std::cos(i * 0.37f), y = oy + 90.0f * std::sin(i * 0.37f);
            if (i == 74) x = ox - 30, y = oy - 20;
            if (i == 77) x = ox + 30, y = oy - 20;
            put(&x);
            put(&y);
        }
    }
    return bytes;
}

struct Stage {
    ZuAppMain* app = nullptr;
    std::string dir;
    std::vector<uint8_t> record;
    std::vector<ZuAniSpineNode*> stickers;

    bool build() {
        if (!ZuHeadlessContext::instance().makeCurrent(3)) return false;
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        ZuGlobalMgr* managers = app->getGlobalMgr();
        Camera* camera = managers->getConfig()->getCamera("s");
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
        push(new ZuOperateCreateLogicScene(app, "s", kSize, kSize, kSize, kSize, SCALE_MODE_FULL));
        push(new ZuOperateChangeDetectDataType(app, DETECTTYPE_FP));
        frame();
        dir = writeFiles(app);
        record = fourFaces();
        ZuScene* scene = managers->getSceneMgr()->getScene("s");
        if (!scene || dir.empty()) return false;
        for (int i = 0; i < kStickers; ++i) {
            ZuSpine* spine = ZuSpine::createSpine(app, "s", (dir + "dots.json").c_str(), (dir + "dots.atlas").c_str(), 1);
            auto* node = dynamic_cast<ZuAniSpineNode*>(
                managers->getNodeMgr()->getCreator()->createNode("ZuAniSpineNode", "s", "sticker"));
            if (!spine || !node) return false;
            node->setSpine(spine);
            spine->release();
            node->setpersonID(1 + i % kFaces);
            node->setloop(true);
            node->addBindMapName("b0", 46);
            node->play();
            scene->addChild(node);
            stickers.push_back(node);
        }
        // Decode the page and let every sticker run a few turns.
        for (int i = 0; i < 60; ++i) {
            frame();
            usleep(1000);
        }
        return true;
    }
    void push(ZuOperateBase* op) {
        app->getGlobalMgr()->getOperateMgr()->pushOperate(op);
        op->release();
    }
    void tick() {
        app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
        app->update();
    }
    void frame() {
        tick();
        app->directrender("");
    }
    ~Stage() {
        if (!app) return;
        app->destroyZuBase();
        app->destroy();
        app->release();
        if (!dir.empty()) std::system(("rm -rf '" + dir + "'").c_str());
    }
};

void BM_TwentyFaceStickersTick(benchmark::State& state) {
    _setMalloc(countingMalloc);
    Stage stage;
    if (!stage.build()) {
        state.SkipWithError("headless GL or the sticker files unavailable");
        _setMalloc(nullptr);
        return;
    }
    long frames = 0;
    g_heapCalls = 0;
    for (auto _ : state) {
        stage.tick();
        state.PauseTiming();
        stage.app->directrender("");
        state.ResumeTiming();
        ++frames;
    }
    state.counters["stickers"] = kStickers;
    state.counters["bones_each"] = kBones;
    int playing = 0;
    for (ZuAniSpineNode* node : stage.stickers) playing += node->getPlayState() == ZuAniSpineNode::STATE_PLAYING;
    state.counters["playing"] = playing;
    // Includes what the replay allocates: its commands are made by the tick.
    state.counters["heap_calls_per_frame"] = frames ? static_cast<double>(g_heapCalls) / frames : 0;
    _setMalloc(nullptr);
}
BENCHMARK(BM_TwentyFaceStickersTick)->Unit(benchmark::kMicrosecond)->Repetitions(3)->ReportAggregatesOnly(true);

// One playing sticker's own update (clip, pinned bone, world transform and
// batch), with its heap calls.
void BM_PlayingStickerUpdate(benchmark::State& state) {
    _setMalloc(countingMalloc);
    Stage stage;
    if (!stage.build()) {
        state.SkipWithError("headless GL or the sticker files unavailable");
        _setMalloc(nullptr);
        return;
    }
    ZuAniSpineNode* node = stage.stickers[0];
    long frames = 0, quiet = 0, total = 0;
    for (auto _ : state) {
        const long before = g_heapCalls.load(std::memory_order_relaxed);
        node->update(33.0f);
        const long calls = g_heapCalls.load(std::memory_order_relaxed) - before;
        total += calls;
        quiet += calls == 0;
        ++frames;
    }
    // The turn's end sends its events (objects on the heap); other updates
    // make none.
    state.counters["heap_calls_per_update"] = frames ? static_cast<double>(total) / frames : 0;
    state.counters["updates_without_heap_calls"] = frames ? static_cast<double>(quiet) / frames : 0;
    _setMalloc(nullptr);
}
BENCHMARK(BM_PlayingStickerUpdate)->Unit(benchmark::kMicrosecond)->Repetitions(3)->ReportAggregatesOnly(true);

} // namespace
