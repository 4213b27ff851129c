// What each style pass adds to a camera frame at 720 x 1280. One engine per
// pass; every iteration runs the whole frame path a host drives through
// ZuAppNative (an NV21 frame pushed, converted, the pass, RGBA read back,
// glFinish) twice, back to back: once with the pass hidden (a hidden pass
// records nothing, so that frame is the camera path alone) and once with
// it shown. Interleaving keeps the comparison fair on a shared machine.
//
// Counters, per frame: camera_ms, with_pass_ms and extra_ms (their
// difference). A face record is pushed on both frames, so that the matting
// pass, which draws only while a face is in the picture, does its work. The
// GL is Mesa's software rasteriser: CPU milliseconds, to compare passes
// with each other, not with a phone.
#include "BenchScene.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Pass {
    const char* type;
    const char* label;
};
const Pass kPasses[] = {
    {"ZuSketchFilterNode", "sketch (73 reads a pixel)"},
    {"ZuEffectShakeNode", "channel shake"},
    {"ZuAlphaMattingNode", "background matting (41 reads a pixel)"},
    {"ZuPencilDrawingNode", "pencil drawing"},
    {"ZuShakeFilterNode", "offset copy"},
};
const int kPassCount = sizeof(kPasses) / sizeof(kPasses[0]);
const int kWidth = 720, kHeight = 1280;

double millisSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// The bench scene with one face in the picture and the pass on it.
class StyleFrame {
public:
    explicit StyleFrame(const Pass& pass)
        : scene({kWidth, kHeight, DETECTTYPE_FP, 0, true, {QZ_BENCH_ASSETS}}) {
        // Squares, so the edge passes find edges to draw.
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                scene.nv21[static_cast<size_t>(y) * kWidth + x] = static_cast<uint8_t>(((x / 40 + y / 40) % 2) ? 200 : 60);
        scene.record = faceRecord();
        scene.frame();
        node = scene.add(pass.type, "style", 1);
        if (!node) {
            fprintf(stderr, "no %s\n", pass.type);
            std::exit(1);
        }
        // Programs linked, textures committed, pixel buffers in use.
        for (int i = 0; i < 3; ++i) scene.frame();
    }

    double timedFrame(bool withPass) {
        node->setVisible(withPass);
        const auto begin = std::chrono::steady_clock::now();
        scene.frame();
        return millisSince(begin);
    }

private:
    // One FP face in the middle of the frame.
    static std::vector<uint8_t> faceRecord() {
        std::vector<uint8_t> record;
        auto put = [&record](const void* v) {
            const uint8_t* b = static_cast<const uint8_t*>(v);
            record.insert(record.end(), b, b + 4);
        };
        const int32_t count = 1;
        put(&count);
        const float angles[3] = {0, 0, 0};
        for (const float& a : angles) put(&a);
        const int32_t rect[4] = {260, 440, 460, 840};
        for (const int32_t& r : rect) put(&r);
        for (int i = 0; i < 106; ++i) {
            const float p[2] = {300.0f + (i % 10) * 12.0f, 500.0f + (i / 10) * 30.0f};
            put(&p[0]);
            put(&p[1]);
        }
        return record;
    }

    BenchScene scene;
    ZuNode* node = nullptr;
};

void BM_StylePass(benchmark::State& state) {
    const Pass& pass = kPasses[state.range(0)];
    StyleFrame frame(pass);
    double camera = 0.0, shown = 0.0;
    for (auto _ : state) {
        camera += frame.timedFrame(false);
        shown += frame.timedFrame(true);
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["camera_ms"] = camera / n;
    state.counters["with_pass_ms"] = shown / n;
    state.counters["extra_ms"] = (shown - camera) / n;
    state.SetLabel(pass.label);
}
BENCHMARK(BM_StylePass)
    ->DenseRange(0, kPassCount - 1, 1)
    ->ArgNames({"pass"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
