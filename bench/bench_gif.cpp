// The GIF encoder's cost per frame, as the recording worker pays it: colour
// reduction to one 256-colour palette and compression of a 720 x 1280 frame,
// and of the 360 x 640 frame that qzhost records by default. The picture is
// photo-like (gradients with noise), the hard case for a palette.

#include "platform/GifWrap.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

std::vector<uint8_t> photoLike(int width, int height) {
    std::vector<uint8_t> rgba(static_cast<size_t>(width) * height * 4);
    uint32_t seed = 12345;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            seed = seed * 1664525u + 1013904223u;
            uint8_t* p = &rgba[(static_cast<size_t>(y) * width + x) * 4];
            p[0] = static_cast<uint8_t>((x * 255 / width) + (seed >> 29));
            p[1] = static_cast<uint8_t>((y * 255 / height) + (seed >> 30));
            p[2] = static_cast<uint8_t>(((x + y) >> 3) + (seed >> 28));
            p[3] = 255;
        }
    return rgba;
}

void BM_GifFrame(benchmark::State& state) {
    const int width = static_cast<int>(state.range(0)), height = static_cast<int>(state.range(1));
    const std::vector<uint8_t> frame = photoLike(width, height);
    const std::string path = "/tmp/qz_bench_gif_" + std::to_string(getpid()) + ".gif";
    GifWrap gif;
    if (!gif.startGif(path.c_str(), width, height)) {
        state.SkipWithError("cannot open the GIF");
        return;
    }
    for (auto _ : state) benchmark::DoNotOptimize(gif.pushFrame(frame.data(), 4));
    gif.stopGif();
    std::remove(path.c_str());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GifFrame)->Args({720, 1280})->Args({360, 640})->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
