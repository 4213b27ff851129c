#include "CameraFrameConverter.h"
#include "HostEngine.h"
#include "support/TempDir.h"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

const int kSide = 32;

// Top half red, bottom half blue, so colour and orientation both show;
// swapped, the other way round.
std::vector<uint8_t> splitFrame(bool swapped = false) {
    std::vector<uint8_t> rgba(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            uint8_t* p = &rgba[(y * kSide + x) * 4];
            bool top = (y < kSide / 2) != swapped;
            p[0] = top ? 230 : 20;
            p[1] = 20;
            p[2] = top ? 20 : 230;
            p[3] = 255;
        }
    return rgba;
}

void expectNear(const uint8_t* pixel, int r, int g, int b) {
    const int tolerance = 12; // YUV round trip
    EXPECT_NEAR(pixel[0], r, tolerance);
    EXPECT_NEAR(pixel[1], g, tolerance);
    EXPECT_NEAR(pixel[2], b, tolerance);
}

} // namespace

// Every camera layout goes through the engine and comes back as the same
// picture, bottom row first.
TEST(HostEngine, EveryCameraFormatRoundTripsThroughTheEngine) {
    std::vector<uint8_t> rgba = splitFrame();
    for (int code = CameraFrameConverter::NV21; code <= CameraFrameConverter::BGRA; ++code) {
        auto format = static_cast<CameraFrameConverter::Format>(code);
        SCOPED_TRACE(CameraFrameConverter::formatName(format));
        HostEngine engine;
        ASSERT_TRUE(engine.start(QZ_SOURCE_DIR "/assets/"));
        engine.setupScene(kSide, kSide, format, 1);
        std::vector<uint8_t> camera, out(kSide * kSide * 4);
        ASSERT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), kSide, kSide, format, camera));
        engine.pushFrame(camera);
        engine.renderFrame();
        ASSERT_TRUE(engine.fetch(out));
        const uint8_t* firstRow = &out[(2 * kSide + 5) * 4];              // near the bottom
        const uint8_t* lastRow = &out[((kSide - 3) * kSide + 5) * 4];     // near the top
        expectNear(firstRow, 20, 20, 230);
        expectNear(lastRow, 230, 20, 20);
        // The next frame comes back as itself, not one frame late.
        std::vector<uint8_t> swapped = splitFrame(true);
        ASSERT_TRUE(CameraFrameConverter::convert(swapped.data(), swapped.size(), kSide, kSide, format, camera));
        engine.pushFrame(camera);
        engine.renderFrame();
        ASSERT_TRUE(engine.fetch(out));
        expectNear(firstRow, 230, 20, 20);
        expectNear(lastRow, 20, 20, 230);
        engine.stop();
    }
}

TEST(HostEngine, ReportsAPackageThatFailsToParse) {
    HostEngine engine;
    ASSERT_TRUE(engine.start(QZ_SOURCE_DIR "/assets/"));
    engine.setupScene(kSide, kSide, CameraFrameConverter::NV21, 1);
    engine.loadEffects({QZ_SOURCE_DIR "/samples/packages/timeout", "/nonexistent/package"}, false);
    engine.waitForEffects(false, 3000);
    EXPECT_EQ(engine.failedEffects(), 1);
}

// The host renders each frame twice on ES 3 (for the late read-back); with a
// stepped clock the GIF still holds one picture per frame, each lasting the
// frame's 1/fps, in the order shown.
TEST(HostEngine, RecordsOneGifFramePerRenderedFrameAtTheClipsRate) {
    TempDir dir;
    const std::string path = dir.path() + "/clip.gif";
    HostEngine engine;
    ASSERT_TRUE(engine.start(QZ_SOURCE_DIR "/assets/"));
    engine.setupScene(kSide, kSide, CameraFrameConverter::RGBA, 1);
    engine.useFrameRate(10);
    for (int i = 0; i < 3; ++i) {
        engine.pushFrame(splitFrame(i == 1));
        if (i == 0) {
            ASSERT_TRUE(engine.startGif(path, kSide, kSide));
        }
        engine.renderFrame();
    }
    ASSERT_TRUE(engine.finishGif(10000));
    engine.stop();

    int error = 0;
    GifFileType* gif = DGifOpenFileName(path.c_str(), &error);
    ASSERT_NE(gif, nullptr);
    ASSERT_NE(DGifSlurp(gif), GIF_ERROR);
    ASSERT_EQ(gif->ImageCount, 3);
    for (int i = 0; i < 3; ++i) {
        GraphicsControlBlock control;
        DGifSavedExtensionToGCB(gif, i, &control);
        EXPECT_EQ(control.DelayTime, 10) << "frame " << i;
        // Top-left pixel of the file: the top half is red, blue when swapped.
        const SavedImage& image = gif->SavedImages[i];
        const GifColorType& c = image.ImageDesc.ColorMap->Colors[image.RasterBits[5]];
        EXPECT_EQ(c.Red > c.Blue, i != 1) << "frame " << i;
    }
    DGifCloseFile(gif, &error);
}

