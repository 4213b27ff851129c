// Recording and replaying a frame of 2,000 textured quads: the per-draw cost
// of the command streams, split into the update-tick part (recording) and
// the GL part (replay with material refresh and draw).
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/command/ZuRenderScene.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

const int kQuads = 2000;

// An engine with one render scene, one textured material and 2,000 render
// objects sharing a small quad mesh.
struct QuadFrame {
    QuadFrame() {
        if (!ZuHeadlessContext::instance().makeCurrent(3)) {
            fprintf(stderr, "headless GL unavailable: %s\n", ZuHeadlessContext::instance().error().c_str());
            std::exit(1);
        }
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        renderMgr = app->getGlobalMgr()->getRenderMgr();
        scene = renderMgr->createRenderScene("bench");
        scene->setWinSize(64, 64);
        std::vector<uint8_t> pixels(16 * 16 * 4, 200);
        texture = app->getGlobalMgr()->getTexMgr()->createNullTextureWithData("bench_tex", 16, 16, GL_RGBA, GL_RGBA,
                                                                              pixels.data());
        material = new ZuMaterial(app, "normal2d");
        material->setTexture0(texture);
        material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        mesh = ZuRenderData::createRectMesh(0.05f, 0.05f);
        for (int i = 0; i < kQuads; i++) {
            ZuRenderObject* object = new ZuRenderObject(app);
            object->setMesh(mesh);
            object->setMaterial(material);
            objects.push_back(object);
        }
    }
    ~QuadFrame() {
        scene->refresh();
        for (ZuRenderObject* o : objects) o->release();
        qzSafeRelease(mesh);
        material->release();
        app->setState("bench", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void record() {
        for (ZuRenderObject* o : objects) o->pushCmd(scene, RS_SPRITE, "quad");
    }

    ZuAppMain* app = nullptr;
    ZuRenderMgr* renderMgr = nullptr;
    ZuRenderScene* scene = nullptr;
    ZuTexture* texture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    std::vector<ZuRenderObject*> objects;
};

QuadFrame& frame() {
    static QuadFrame* shared = new QuadFrame();
    return *shared;
}

// The update-tick share: 2,000 commands allocated and appended.
void BM_Record2000Quads(benchmark::State& state) {
    QuadFrame& f = frame();
    for (auto _ : state) {
        f.record();
        state.PauseTiming();
        f.scene->refresh();  // drop them unplayed
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kQuads);
}
BENCHMARK(BM_Record2000Quads)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

// The GL share: replay with a full material refresh per draw, then a finish so
// that the figure includes the driver's work.
void BM_Replay2000Quads(benchmark::State& state) {
    QuadFrame& f = frame();
    for (auto _ : state) {
        state.PauseTiming();
        f.record();
        state.ResumeTiming();
        f.scene->direct_render();
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * kQuads);
}
BENCHMARK(BM_Replay2000Quads)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char** argv) {
    ZuLog::setLevel(ZU_LOG_WARN);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
