// ZuPngLoader's decode of a 1024 x 1024 RGBA PNG against a plain libpng
// decode loop over the same bytes, in the same run. Both decode from memory;
// the loader adds its normalising transforms and the premultiply.
//
// The plain loop calls libpng through symbols looked up at run time: the
// engine links libpng privately, and this keeps the benchmark program's link
// line what every benchmark has.

#include "render/texture/ZuPngLoader.h"
#include "render/texture/ZuPngWriter.h"

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <unistd.h>
#include <png.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr int kSide = 1024;

// A photo-like picture: smooth gradients with a little noise and varying alpha.
const std::vector<uint8_t>& pngBytes() {
    static std::vector<uint8_t> bytes = [] {
        std::vector<uint8_t> rgba(static_cast<size_t>(kSide) * kSide * 4);
        uint32_t seed = 12345;
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                seed = seed * 1664525u + 1013904223u;
                uint8_t* p = &rgba[(static_cast<size_t>(y) * kSide + x) * 4];
                p[0] = static_cast<uint8_t>((x >> 2) + (seed >> 29));
                p[1] = static_cast<uint8_t>((y >> 2) + (seed >> 30));
                p[2] = static_cast<uint8_t>(((x + y) >> 3) + (seed >> 28));
                p[3] = static_cast<uint8_t>(255 - ((x * y) >> 12));
            }
        }
        std::string path = "/tmp/qz_bench_png_" + std::to_string(getpid()) + ".png";
        ZuPngWriter writer(nullptr);
        if (!writer.write(path.c_str(), kSide, kSide, rgba.data())) return std::vector<uint8_t>();
        std::ifstream in(path, std::ios::binary);
        std::vector<uint8_t> out((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        std::remove(path.c_str());
        return out;
    }();
    return bytes;
}

// libpng entry points, resolved from the copy the engine loaded.
struct Libpng {
    decltype(&png_create_read_struct) createRead = nullptr;
    decltype(&png_create_info_struct) createInfo = nullptr;
    decltype(&png_set_read_fn) setReadFn = nullptr;
    decltype(&png_get_io_ptr) getIoPtr = nullptr;
    decltype(&png_read_info) readInfo = nullptr;
    decltype(&png_get_image_width) width = nullptr;
    decltype(&png_get_image_height) height = nullptr;
    decltype(&png_read_update_info) updateInfo = nullptr;
    decltype(&png_get_rowbytes) rowbytes = nullptr;
    decltype(&png_read_image) readImage = nullptr;
    decltype(&png_read_end) readEnd = nullptr;
    decltype(&png_destroy_read_struct) destroyRead = nullptr;

    bool ok() const { return createRead && destroyRead && readImage; }

    static const Libpng& get() {
        static Libpng lib = [] {
            Libpng l;
            auto sym = [](const char* name) { return dlsym(RTLD_DEFAULT, name); };
            l.createRead = reinterpret_cast<decltype(l.createRead)>(sym("png_create_read_struct"));
            l.createInfo = reinterpret_cast<decltype(l.createInfo)>(sym("png_create_info_struct"));
            l.setReadFn = reinterpret_cast<decltype(l.setReadFn)>(sym("png_set_read_fn"));
            l.getIoPtr = reinterpret_cast<decltype(l.getIoPtr)>(sym("png_get_io_ptr"));
            l.readInfo = reinterpret_cast<decltype(l.readInfo)>(sym("png_read_info"));
            l.width = reinterpret_cast<decltype(l.width)>(sym("png_get_image_width"));
            l.height = reinterpret_cast<decltype(l.height)>(sym("png_get_image_height"));
            l.updateInfo = reinterpret_cast<decltype(l.updateInfo)>(sym("png_read_update_info"));
            l.rowbytes = reinterpret_cast<decltype(l.rowbytes)>(sym("png_get_rowbytes"));
            l.readImage = reinterpret_cast<decltype(l.readImage)>(sym("png_read_image"));
            l.readEnd = reinterpret_cast<decltype(l.readEnd)>(sym("png_read_end"));
            l.destroyRead = reinterpret_cast<decltype(l.destroyRead)>(sym("png_destroy_read_struct"));
            return l;
        }();
        return lib;
    }
};

struct Source {
    const uint8_t* bytes;
    size_t length;
    size_t offset;
};

const Libpng* gLib = nullptr;

void readBytes(png_structp png, png_bytep out, png_size_t count) {
    Source* s = static_cast<Source*>(gLib->getIoPtr(png));
    if (count > s->length - s->offset) std::abort();  // the input is well formed
    std::memcpy(out, s->bytes + s->offset, count);
    s->offset += count;
}

void abortOnError(png_structp, png_const_charp message) {
    std::fprintf(stderr, "libpng: %s\n", message);
    std::abort();
}

// The baseline: an 8-bit RGBA file straight into one buffer, no transforms.
void plainDecode(const Libpng& lib, const std::vector<uint8_t>& bytes, std::vector<uint8_t>& out,
                 std::vector<png_bytep>& rows) {
    Source source{bytes.data(), bytes.size(), 0};
    png_structp png = lib.createRead(PNG_LIBPNG_VER_STRING, nullptr, abortOnError, nullptr);
    png_infop info = lib.createInfo(png);
    lib.setReadFn(png, &source, readBytes);
    lib.readInfo(png, info);
    png_uint_32 w = lib.width(png, info), h = lib.height(png, info);
    lib.updateInfo(png, info);
    size_t rowBytes = lib.rowbytes(png, info);
    out.resize(rowBytes * h);
    rows.resize(h);
    for (png_uint_32 y = 0; y < h; ++y) rows[y] = out.data() + y * rowBytes;
    lib.readImage(png, rows.data());
    lib.readEnd(png, nullptr);
    lib.destroyRead(&png, &info, nullptr);
    (void)w;
}

void BM_PlainLibpngDecode(benchmark::State& state) {
    const std::vector<uint8_t>& bytes = pngBytes();
    const Libpng& lib = Libpng::get();
    gLib = &lib;
    if (bytes.empty() || !lib.ok()) {
        state.SkipWithError("no test image or no libpng symbols");
        return;
    }
    std::vector<uint8_t> out;
    std::vector<png_bytep> rows;
    for (auto _ : state) {
        plainDecode(lib, bytes, out, rows);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSide * kSide * 4);
}

void BM_ZuPngLoaderDecode(benchmark::State& state) {
    const std::vector<uint8_t>& bytes = pngBytes();
    if (bytes.empty()) {
        state.SkipWithError("no test image");
        return;
    }
    ZuPngLoader loader(nullptr);
    for (auto _ : state) {
        unsigned char* pixels = nullptr;
        if (!loader._readPngFromStream(bytes.data(), static_cast<int>(bytes.size()), "bench", &pixels)) {
            state.SkipWithError("decode failed");
            return;
        }
        benchmark::DoNotOptimize(pixels);
        std::free(pixels);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSide * kSide * 4);
}

} // namespace

BENCHMARK(BM_PlainLibpngDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZuPngLoaderDecode)->Unit(benchmark::kMillisecond);
