// What beauty and colour passes add to a camera frame, at a phone's preview
// sizes (720 x 1280 and 1080 x 1920). Each iteration is the whole frame path
// a host drives through ZuAppNative: an NV21 camera frame pushed, converted
// into the scene, the passes, and the RGBA output read back (glFinish
// included). Configurations: the camera path alone; with smoothing and
// whitening at the default quality (6) and at the lowest (1); with a named
// look alone; with smoothing, whitening and a look; with the run-time curve
// look. The GL is Mesa's software rasteriser, so the figures are CPU
// milliseconds: compare configurations with each other, not with a phone.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/filter/ZuFilterNode.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

enum Passes { kCameraOnly, kSmoothDefault, kSmoothLowest, kLook, kSmoothAndLook, kCurves, kPassesCount };

const char* const kLabels[kPassesCount] = {"camera path alone", "+ smoothing/whitening, quality 6",
                                           "+ smoothing/whitening, quality 1", "+ look (64-level cube)",
                                           "+ smoothing q6 + look", "+ run-time curve look"};

const char* const kScene = "bench";

class CameraFrame {
public:
    CameraFrame(int width, int height, Passes passes) : width(width), height(height) {
        if (!ZuHeadlessContext::instance().makeCurrent(3)) {
            fprintf(stderr, "headless GL unavailable: %s\n", ZuHeadlessContext::instance().error().c_str());
            std::exit(1);
        }
        ZuLog::setLevel(ZU_LOG_WARN);
        app = new ZuAppMain();
        app->init();
        app->addRespath(QZ_BENCH_ASSETS);
        app->initZuBase();
        ZuConfig* config = app->getGlobalMgr()->getConfig();
        config->glversion = 0x30000;
        config->faceBeautyType = passes == kSmoothLowest ? 1 : 6;
        Camera* camera = config->getCamera(kScene);
        camera->width = width;
        camera->height = height;
        camera->angle = 0;

        ZuAppNative* native = app->getAppInter();
        native->createLogicSceneFull(kScene, width, height, width, height);
        native->createBGNode(kScene, 1); // NV21
        native->setOutSteamFormate(kScene, 1, true, false);
        // The set-up operations (camera format among them) run in this tick,
        // before the first frame is pushed.
        app->update();
        app->directrender("");
        nv21.assign(static_cast<size_t>(width) * height * 3 / 2, 128);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) nv21[static_cast<size_t>(y) * width + x] = static_cast<uint8_t>((x ^ y) & 0xFF);
        output.resize(static_cast<size_t>(width) * height * 4);
        frame();

        if (passes == kSmoothDefault || passes == kSmoothLowest || passes == kSmoothAndLook) add("ZuFaceBuffingWhiteNode", "skin");
        if (passes == kLook || passes == kSmoothAndLook) {
            auto* look = dynamic_cast<ZuBeauFilterNode*>(add("ZuBeauFilterNode", "look"));
            if (look) {
                look->setFilterType(ZUBEAUFILTER_SNOW);
                for (int i = 0; i < 1000 && !look->getFilterTex(0)->getbLoad(); ++i) {
                    frame();
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                }
            }
        }
        if (passes == kCurves) {
            if (auto* curves = dynamic_cast<ZuFilterNode*>(add("ZuFilterNode", "curves")))
                curves->setFilterType(ZU_FILTER_GATHER_MOON);
        }
        // Programs linked, textures committed, pixel buffers in use.
        for (int i = 0; i < 3; ++i) frame();
    }
    ~CameraFrame() {
        app->setState("bench", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }

    void frame() {
        ZuAppNative* native = app->getAppInter();
        native->pushCameraData(kScene, nv21.data(), static_cast<int>(nv21.size()));
        app->update();
        app->directrender("");
        native->fetchRenderData(kScene, output.data());
        glFinish();
    }

private:
    ZuNode* add(const char* type, const char* name) {
        ZuNode* node = app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode(type, kScene, name);
        ZuScene* scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
        if (node && scene) scene->addChild(node);
        return node;
    }

    int width, height;
    ZuAppMain* app = nullptr;
    std::vector<uint8_t> nv21;
    std::vector<uint8_t> output;
};

void BM_CameraFrame(benchmark::State& state) {
    const int width = static_cast<int>(state.range(0));
    const int height = width == 720 ? 1280 : 1920;
    const auto passes = static_cast<Passes>(state.range(1));
    CameraFrame frame(width, height, passes);
    for (auto _ : state) frame.frame();
    state.SetLabel(kLabels[passes]);
}
BENCHMARK(BM_CameraFrame)
    ->ArgsProduct({{720, 1080}, benchmark::CreateDenseRange(kCameraOnly, kPassesCount - 1, 1)})
    ->ArgNames({"width", "passes"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
