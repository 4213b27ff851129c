#include "platform/GifWrap.h"

#include "platform/ZuLog.h"

#include <gif_lib.h>

namespace {
const int kPaletteSize = 256;
const int kDefaultDelayCs = 4;
// GIF sizes are 16-bit.
const int kMaxSide = 65535;
} // namespace

GifWrap::~GifWrap() {
    stopGif();
}

void GifWrap::fail(const char* what, int error) {
    QZLOGE("gif: %s failed: %s", what, GifErrorString(error));
    int ignored = 0;
    if (file) EGifCloseFile(file, &ignored);
    file = nullptr;
}

bool GifWrap::startGif(const char* path, int w, int h) {
    stopGif();
    if (!path || w <= 0 || h <= 0 || w > kMaxSide || h > kMaxSide) {
        QZLOGE("gif: refused to start %s at %d x %d", path ? path : "(no path)", w, h);
        return false;
    }
    int error = 0;
    file = EGifOpenFileName(path, false, &error);
    if (!file) {
        QZLOGE("gif: cannot create %s: %s", path, GifErrorString(error));
        return false;
    }
    width = w;
    height = h;
    frames = 0;
    const size_t pixels = static_cast<size_t>(w) * h;
    red.resize(pixels);
    green.resize(pixels);
    blue.resize(pixels);
    indices.resize(pixels);
    EGifSetGifVersion(file, true); // delays and looping need GIF89a
    if (EGifPutScreenDesc(file, w, h, 8, 0, nullptr) == GIF_ERROR) {
        fail("screen descriptor", file->Error);
        return false;
    }
    return writeLoopExtension();
}

bool GifWrap::writeLoopExtension() {
    static const GifByteType kApplication[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
    static const GifByteType kLoopForever[] = {1, 0, 0};
    if (EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE) == GIF_ERROR ||
        EGifPutExtensionBlock(file, sizeof(kApplication), kApplication) == GIF_ERROR ||
        EGifPutExtensionBlock(file, sizeof(kLoopForever), kLoopForever) == GIF_ERROR ||
        EGifPutExtensionTrailer(file) == GIF_ERROR) {
        fail("loop extension", file->Error);
        return false;
    }
    return true;
}

bool GifWrap::pushFrame(const void* rgba, int delayCentiseconds) {
    if (!file || !rgba) return false;
    const uint8_t* src = static_cast<const uint8_t*>(rgba);
    const size_t pixels = static_cast<size_t>(width) * height;
    for (size_t i = 0; i < pixels; ++i) {
        red[i] = src[i * 4];
        green[i] = src[i * 4 + 1];
        blue[i] = src[i * 4 + 2];
    }
    GifColorType palette[kPaletteSize] = {};
    int paletteSize = kPaletteSize;
    if (GifQuantizeBuffer(width, height, &paletteSize, red.data(), green.data(), blue.data(), indices.data(),
                          palette) == GIF_ERROR) {
        fail("colour reduction", E_GIF_ERR_NOT_ENOUGH_MEM);
        return false;
    }
    ColorMapObject* map = GifMakeMapObject(kPaletteSize, palette);
    if (!map) {
        fail("palette", E_GIF_ERR_NOT_ENOUGH_MEM);
        return false;
    }

    const int delay = delayCentiseconds > 0 ? delayCentiseconds : kDefaultDelayCs;
    GraphicsControlBlock control = {};
    control.DisposalMode = DISPOSE_DO_NOT;
    control.DelayTime = delay > 0xffff ? 0xffff : delay;
    control.TransparentColor = NO_TRANSPARENT_COLOR;
    GifByteType controlBytes[4];
    EGifGCBToExtension(&control, controlBytes);

    bool ok = EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, sizeof(controlBytes), controlBytes) != GIF_ERROR &&
              EGifPutImageDesc(file, 0, 0, width, height, false, map) != GIF_ERROR;
    for (int row = 0; ok && row < height; ++row)
        ok = EGifPutLine(file, indices.data() + static_cast<size_t>(row) * width, width) != GIF_ERROR;
    GifFreeMapObject(map);
    if (!ok) {
        fail("frame", file->Error);
        return false;
    }
    ++frames;
    return true;
}

bool GifWrap::stopGif() {
    if (!file) return false;
    int error = 0;
    const bool ok = EGifCloseFile(file, &error) != GIF_ERROR;
    file = nullptr;
    if (!ok) QZLOGE("gif: closing failed: %s", GifErrorString(error));
    return ok;
}
