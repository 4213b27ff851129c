// What a full-screen colour or beauty pass costs per frame at a phone's
// preview size (720 x 1280): the whole frame (update, replay, glFinish) with
// no pass, with a named look of each cube size, with the run-time curve look
// and with skin smoothing at an ES 2 and an ES 3 quality. The GL here is
// Mesa's software rasteriser, so the figures are CPU milliseconds: compare
// the passes with each other and with the empty frame, not with a phone.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/ZuBeauFilterNode.h"
#include "node/ZuFilterNode.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "render/ZuTexture.h"
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

enum Pass { kNone, kCube16, kCube64, kCurves, kSmoothEs2, kSmoothEs3 };

struct FilterFrame {
    explicit FilterFrame(Pass pass) {
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
        config->faceBeautyType = pass == kSmoothEs3 ? 6 : 3;
        app->getAppInter()->createLogicSceneFull("b", 720, 1280, 720, 1280);
        frame();
        ZuScene* scene = app->getGlobalMgr()->getSceneMgr()->getScene("b");
        ZuNodeCreator* creator = app->getGlobalMgr()->getNodeMgr()->getCreator();
        ZuNode* node = nullptr;
        switch (pass) {
        case kNone: break;
        case kCube16:
        case kCube64: {
            auto* look = dynamic_cast<ZuBeauFilterNode*>(creator->createNode("ZuBeauFilterNode", "b", "look"));
            look->setFilterType(pass == kCube16 ? ZUBEAUFILTER_PINK : ZUBEAUFILTER_SNOW);
            waitFor([look] { return look->getFilterTex(0)->getbLoad(); });
            node = look;
            break;
        }
        case kCurves: {
            auto* curves = dynamic_cast<ZuFilterNode*>(creator->createNode("ZuFilterNode", "b", "curves"));
            curves->setFilterType(ZU_FILTER_GATHER_MOON);
            node = curves;
            break;
        }
        case kSmoothEs2:
        case kSmoothEs3: node = creator->createNode("ZuFaceBuffingWhiteNode", "b", "skin"); break;
        }
        if (node && scene) scene->addChild(node);
    }
    ~FilterFrame() {
        app->setState("bench", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    template <class F> void waitFor(F done) {
        for (int i = 0; i < 1000 && !done(); ++i) {
            frame();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
    void frame() {
        app->getGlobalMgr()->update(33.0f);
        app->directrender("");
        glFinish();
    }
    ZuAppMain* app = nullptr;
};

void BM_FilterPassFrame(benchmark::State& state) {
    FilterFrame frame(static_cast<Pass>(state.range(0)));
    for (int i = 0; i < 3; ++i) frame.frame(); // programs linked, textures committed
    for (auto _ : state) frame.frame();
    state.SetLabel(std::vector<const char*>{"no pass", "look, 16-level cube", "look, 64-level cube",
                                            "run-time curves", "smoothing, ES 2 quality 3",
                                            "smoothing, ES 3 quality 6"}[state.range(0)]);
}
BENCHMARK(BM_FilterPassFrame)->DenseRange(kNone, kSmoothEs3)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
