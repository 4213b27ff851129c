// CPU of one tick of a flip-book sticker playing from an atlas of 30
// frames: time line step, region look-up, quad layout and the node's
// matrices (no GL; the draw itself is the GPU's).
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/ZuAniFrameNode.h"
#include "logicsys/Animate2D/ZuAnimateFrame.h"
#include "logicsys/Animate2D/ZuKeyFrame.h"
#include "logicsys/Animate2D/ZuTimeLine.h"
#include "platform/ZuHeadlessContext.h"
#include "render/texture/ZuPngWriter.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTextureSet.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

const int kFrames = 30;
const int kCell = 32;

// An atlas page of 6 x 5 cells and its description, in a fresh folder.
std::string writeAtlas(ZuAppMain* app) {
    char pattern[] = "/tmp/qzbench-XXXXXX";
    const char* made = mkdtemp(pattern);
    if (!made) return "";
    const std::string dir = std::string(made) + "/";
    const int columns = 6, rows = 5;
    std::vector<unsigned char> pixels(columns * kCell * rows * kCell * 4, 200);
    ZuPngWriter writer(app);
    writer.write((dir + "page.png").c_str(), columns * kCell, rows * kCell, pixels.data());
    std::string json = "{\"frames\": [";
    for (int i = 0; i < kFrames; ++i) {
        char entry[256];
        snprintf(entry, sizeof entry,
                 "%s{\"filename\": \"f%02d.png\", \"frame\": {\"x\": %d, \"y\": %d, \"w\": 28, \"h\": 30},"
                 " \"spriteSourceSize\": {\"x\": 2, \"y\": 1, \"w\": 28, \"h\": 30},"
                 " \"sourceSize\": {\"w\": 32, \"h\": 32}}",
                 i ? ", " : "", i, (i % columns) * kCell, (i / columns) * kCell);
        json += entry;
    }
    json += "], \"meta\": {\"image\": \"page.png\"}}";
    FILE* file = fopen((dir + "atlas.json").c_str(), "w");
    if (!file) return "";
    fputs(json.c_str(), file);
    fclose(file);
    return dir;
}

void BM_AtlasFlipBookTick(benchmark::State& state) {
    // A context, so that the material builds its program as on a phone.
    if (!ZuHeadlessContext::instance().makeCurrent(3)) {
        state.SkipWithError("headless GL unavailable");
        return;
    }
    auto* app = new ZuAppMain();
    app->init();
    app->initZuBase();
    const std::string dir = writeAtlas(app);
    ZuTexMgr* textures = app->getGlobalMgr()->getTexMgr();

    auto* node = new ZuAniFrameNode(app);
    node->zuinit();
    auto* animate = new ZuAnimateFrame(app);
    animate->addTexturePList(textures->loadImgPList((dir + "atlas.json").c_str(), dir.c_str()));
    auto* line = new ZuTimeLine();
    line->zuinit(25.0f);
    for (int i = 0; i < kFrames; ++i) {
        char name[16];
        snprintf(name, sizeof name, "f%02d.png", i);
        auto* key = new ZuKeyFrame(app);
        key->setframeID(static_cast<unsigned>(i));
        key->initTexture((dir + name).c_str());
        line->pushFrame(key);
    }
    animate->setM_TimeLine(line);
    node->setAinFrame(animate);
    animate->release();
    node->setposmode(ANIPOS_CENTERORIGIN);
    node->setloop(true);
    node->play();

    // 40 ms ticks at 25 fps: a new frame, a new region, every tick.
    for (auto _ : state) {
        node->update(40.0f);
        benchmark::DoNotOptimize(node->getDisplayWidth());
    }
    state.counters["frames"] = kFrames;

    node->zudestroy();
    node->release();
    app->destroyZuBase();
    app->destroy();
    app->release();
    std::system(("rm -rf '" + dir + "'").c_str());
}
BENCHMARK(BM_AtlasFlipBookTick)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace
