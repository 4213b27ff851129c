// What each face shape and lens adds to a camera frame at 720 x 1280, side
// by side in one run, against the skin smoothing pass. Each iteration is
// the whole frame path a host drives: an NV21 camera frame and the AS face
// record of the sample portrait pushed, the passes, the RGBA output read
// back (glFinish included). "typical package" is what a beauty package
// stacks: the slim warp, big eyes (two lenses) and the landmark slimming.
// The GL is Mesa's software rasteriser, so the figures are CPU
// milliseconds: compare configurations with each other, not with a phone.
#include "BenchScene.h"
#include "node/beauty/ZuBeautyNode.h"
#include "node/morph/ZuCircleDistortionNode.h"
#include "node/morph/ZuEllipseDistortionNode.h"
#include "node/morph/ZuFaceMorphNode.h"
#include "node/morph/ZuFaceNewMorphNode.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

enum Passes {
    kCameraOnly, kSmoothing, kFat, kSquare, kBear, kBearFatPointy, kSlimWarp, kNewMorph, kCircleLens,
    kEllipseLens, kTypical, kPassesCount
};

const char* const kLabels[kPassesCount] = {
    "camera path alone", "+ smoothing/whitening q6", "+ fat face (grid)", "+ square face (grid)",
    "+ bear face (grid)", "+ bear fat pointy (grid)", "+ slim warp", "+ landmark slim",
    "+ round lens", "+ oval lens", "+ typical package: slim, 2 eye lenses, landmark slim"};

// The bench scene with the AS record of the sample portrait and the
// configuration's passes on it.
class FaceFrame {
public:
    FaceFrame(int width, int height, Passes passes)
        : scene({width, height, DETECTTYPE_AS, 6, false, {QZ_BENCH_ASSETS}}) {
        std::ifstream in(QZ_BENCH_SAMPLES "faces/astronaut.as.rec", std::ios::binary);
        scene.record.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        if (scene.record.empty()) {
            fprintf(stderr, "no face record under %s\n", QZ_BENCH_SAMPLES);
            std::exit(1);
        }
        frame();

        switch (passes) {
        case kSmoothing: add("ZuFaceBuffingWhiteNode", "skin"); break;
        case kFat: morph("ZuFaceFatNode"); break;
        case kSquare: morph("ZuFaceSquareNode"); break;
        case kBear: morph("ZuFaceBearNode"); break;
        case kBearFatPointy: morph("ZuFaceBearFatPointyNode"); break;
        case kSlimWarp: slimWarp(); break;
        case kNewMorph: newMorph(); break;
        case kCircleLens: lens(13, "eye"); break;
        case kEllipseLens:
            if (auto* oval = dynamic_cast<ZuEllipseDistortionNode*>(add("ZuEllipseDistortionNode", "oval"))) {
                oval->setpersonID(1);
                oval->setbindIndex(13);
                oval->setintensity(0.3f);
                oval->setradiusx(1.5f);
                oval->setradiusy(1.0f);
            }
            break;
        case kTypical:
            slimWarp();
            lens(13, "left");
            lens(32, "right");
            newMorph();
            break;
        default: break;
        }
        for (int i = 0; i < 3; ++i) frame();
    }
    void frame() { scene.frame(); }

private:
    ZuNode* add(const char* type, const char* name) { return scene.add(type, name); }
    void morph(const char* type) { add(type, "shape"); }
    void slimWarp() {
        if (auto* warp = dynamic_cast<ZuBeautyNode*>(add("ZuBeautyNode", "slim"))) {
            warp->setpersonID(1);
            warp->setFaceSlim(0.974f);
            warp->setChinSlim(0.924f);
        }
    }
    void newMorph() {
        if (auto* node = dynamic_cast<ZuFaceMorphNode*>(add("ZuFaceNewMorphNode", "landmarks"))) {
            frame();  // the rules arrive with the first tick
            node->setNewSlimStrength(0.3f);
        }
    }
    void lens(int landmark, const char* name) {
        if (auto* node = dynamic_cast<ZuCircleDistortionNode*>(add("ZuCircleDistortionNode", name))) {
            node->setpersonID(1);
            node->setbindIndex(landmark);
            node->setintensity(0.3f);
            node->setradius(1.0f);
        }
    }

    BenchScene scene;
};

void BM_FaceShape(benchmark::State& state) {
    const auto passes = static_cast<Passes>(state.range(0));
    FaceFrame frame(720, 1280, passes);
    for (auto _ : state) frame.frame();
    state.SetLabel(kLabels[passes]);
}
BENCHMARK(BM_FaceShape)
    ->DenseRange(kCameraOnly, kPassesCount - 1, 1)
    ->ArgNames({"passes"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
