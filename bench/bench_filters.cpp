// What beauty and colour passes add to a camera frame, at a phone's preview
// sizes (720 x 1280 and 1080 x 1920). Each iteration is the whole frame path
// a host drives through ZuAppNative: an NV21 camera frame pushed, converted
// into the scene, the passes, and the RGBA output read back (glFinish
// included). Configurations: the camera path alone; with smoothing and
// whitening at the default quality (6) and at the lowest (1); with a named
// look alone; with smoothing, whitening and a look; with the run-time curve
// look. The GL is Mesa's software rasteriser, so the figures are CPU
// milliseconds: compare configurations with each other, not with a phone.
#include "BenchScene.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/filter/ZuFilterNode.h"
#include "render/texture/ZuTexture.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <thread>

namespace {

enum Passes { kCameraOnly, kSmoothDefault, kSmoothLowest, kLook, kSmoothAndLook, kCurves, kPassesCount };

const char* const kLabels[kPassesCount] = {"camera path alone", "+ smoothing/whitening, quality 6",
                                           "+ smoothing/whitening, quality 1", "+ look (64-level cube)",
                                           "+ smoothing q6 + look", "+ run-time curve look"};

// The bench scene with the configuration's passes on it.
class CameraFrame {
public:
    CameraFrame(int width, int height, Passes passes)
        : scene({width, height, -1, passes == kSmoothLowest ? 1 : 6, false, {QZ_BENCH_ASSETS}}) {
        scene.frame();
        if (passes == kSmoothDefault || passes == kSmoothLowest || passes == kSmoothAndLook)
            scene.add("ZuFaceBuffingWhiteNode", "skin");
        if (passes == kLook || passes == kSmoothAndLook) {
            if (auto* look = dynamic_cast<ZuBeauFilterNode*>(scene.add("ZuBeauFilterNode", "look"))) {
                look->setFilterType(ZUBEAUFILTER_SNOW);
                for (int i = 0; i < 1000 && !look->getFilterTex(0)->getbLoad(); ++i) {
                    scene.frame();
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                }
            }
        }
        if (passes == kCurves) {
            if (auto* curves = dynamic_cast<ZuFilterNode*>(scene.add("ZuFilterNode", "curves")))
                curves->setFilterType(ZU_FILTER_GATHER_MOON);
        }
        // Programs linked, textures committed, pixel buffers in use.
        for (int i = 0; i < 3; ++i) scene.frame();
    }
    void frame() { scene.frame(); }

private:
    BenchScene scene;
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
