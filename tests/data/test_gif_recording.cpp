// Recording the scene into an animated GIF through the facade: the file is
// decoded with giflib and every frame compared with the picture the engine
// showed at that moment.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuGifMgr.h"
#include "platform/GifWrap.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gif_lib.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>
#include <unistd.h>

namespace {

const int kW = 64, kH = 96; // scene and camera
const int kGifW = 32, kGifH = 48;
const int kFrameMs = 40;    // 25 frames a second: 4 centiseconds a frame
const char* const kScene = "gif";

// Frame k: a white bar on dark blue, at row band k % 6 of the picture (top
// row first), so that order and orientation both show in the file.
std::vector<uint8_t> barFrame(int k) {
    std::vector<uint8_t> rgba(static_cast<size_t>(kW) * kH * 4);
    const int band = k % 6, bandRows = kH / 6;
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x) {
            uint8_t* p = &rgba[(static_cast<size_t>(y) * kW + x) * 4];
            const bool bar = y / bandRows == band;
            p[0] = bar ? 250 : 20;
            p[1] = bar ? 250 : 30;
            p[2] = bar ? 250 : 120;
            p[3] = 255;
        }
    return rgba;
}

struct DecodedGif {
    int width = 0, height = 0, frames = 0;
    std::vector<int> delays;
    std::vector<std::vector<uint8_t>> rgb; // top row first
};

bool decode(const std::string& path, DecodedGif& out) {
    int error = 0;
    GifFileType* file = DGifOpenFileName(path.c_str(), &error);
    if (!file) return false;
    if (DGifSlurp(file) == GIF_ERROR) {
        DGifCloseFile(file, &error);
        return false;
    }
    out.width = file->SWidth;
    out.height = file->SHeight;
    out.frames = file->ImageCount;
    for (int i = 0; i < file->ImageCount; ++i) {
        GraphicsControlBlock control;
        DGifSavedExtensionToGCB(file, i, &control);
        out.delays.push_back(control.DelayTime);
        const SavedImage& image = file->SavedImages[i];
        const ColorMapObject* map = image.ImageDesc.ColorMap ? image.ImageDesc.ColorMap : file->SColorMap;
        std::vector<uint8_t> rgb;
        for (int p = 0; p < image.ImageDesc.Width * image.ImageDesc.Height; ++p) {
            const GifColorType& c = map->Colors[image.RasterBits[p]];
            rgb.insert(rgb.end(), {c.Red, c.Green, c.Blue});
        }
        out.rgb.push_back(std::move(rgb));
    }
    DGifCloseFile(file, &error);
    return true;
}

// Mean absolute difference per channel between a decoded frame and bar
// frame k scaled to the GIF's size (nearest pixel).
double meanDifference(const std::vector<uint8_t>& rgb, int k) {
    const std::vector<uint8_t> source = barFrame(k);
    double sum = 0;
    for (int y = 0; y < kGifH; ++y)
        for (int x = 0; x < kGifW; ++x)
            for (int c = 0; c < 3; ++c) {
                const int sx = x * kW / kGifW, sy = y * kH / kGifH;
                sum += std::abs(rgb[(static_cast<size_t>(y) * kGifW + x) * 3 + c] -
                                source[(static_cast<size_t>(sy) * kW + sx) * 4 + c]);
            }
    return sum / (kGifW * kGifH * 3);
}

class GifRecordingTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (!app) return;
        // A clock the test steps: each frame lasts exactly kFrameMs.
        app->setClock([this] { return ZuAppMain::WallTime{micros / 1000000, micros % 1000000}; });
        app->setFirstGetDert(true);
        host = app->getAppInter();
        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(kScene);
        camera->width = kW;
        camera->height = kH;
        camera->angle = 0;
        host->createLogicSceneFull(kScene, kW, kH, kW, kH);
        host->createBGNode(kScene, 4); // RGBA frames
        tick();
    }
    void tick() {
        micros += kFrameMs * 1000;
        frame();
    }
    void showFrame(int k) {
        std::vector<uint8_t> rgba = barFrame(k);
        host->pushCameraData(kScene, rgba.data(), static_cast<int>(rgba.size()));
        tick();
    }
    ZuGifMgr* gifs() { return app->getGlobalMgr()->getGifMgr(); }
    // Waits for the worker to take every frame, stops, waits for the file.
    void finish() {
        tick(); // the last frame shown is read at the start of the next tick
        waitFor([this] { return gifs()->pendingFrames() == 0; });
        host->stopRecordGif();
        waitFor([this] { return !gifs()->isBusy(); });
    }
    template <class Done> void waitFor(Done done) {
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!done() && std::chrono::steady_clock::now() < until)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        ASSERT_TRUE(done());
    }
    // Shows frames first..last, recording from the first.
    void record(const std::string& path, int first, int last) {
        host->startRecordGif(kScene, path.c_str(), kGifW, kGifH);
        for (int k = first; k <= last; ++k) showFrame(k);
        finish();
    }

    int64_t micros = 1000000;
    ZuAppNative* host = nullptr;
    TempDir dir;
};

} // namespace

TEST_F(GifRecordingTest, SixtyFramesComeOutInOrderWithTheirDelayAndColours) {
    const std::string path = dir.path() + "/clip.gif";
    record(path, 0, 59);
    DecodedGif gif;
    ASSERT_TRUE(decode(path, gif));
    EXPECT_EQ(gif.width, kGifW);
    EXPECT_EQ(gif.height, kGifH);
    ASSERT_EQ(gif.frames, 60);
    for (int k = 0; k < 60; ++k) {
        EXPECT_EQ(gif.delays[k], kFrameMs / 10) << "frame " << k;
        // Two colours fit any palette: what is left is the scaling's edge.
        EXPECT_LT(meanDifference(gif.rgb[k], k), 6.0) << "frame " << k;
        // And not the neighbour's picture: the bar moved.
        EXPECT_GT(meanDifference(gif.rgb[k], k + 1), 30.0) << "frame " << k;
    }
}

TEST_F(GifRecordingTest, StartAndStopAreIgnoredOutOfTurnAndTheWorkerServesTheNextRecording) {
    host->stopRecordGif(); // idle: nothing to stop
    EXPECT_FALSE(gifs()->isBusy());

    const std::string first = dir.path() + "/first.gif", second = dir.path() + "/second.gif";
    const std::string intruder = dir.path() + "/intruder.gif";
    host->startRecordGif(kScene, first.c_str(), kGifW, kGifH);
    showFrame(0);
    host->startRecordGif(kScene, intruder.c_str(), 16, 16); // while recording: ignored
    showFrame(1);
    finish();
    record(second, 2, 4);

    DecodedGif a, b;
    ASSERT_TRUE(decode(first, a));
    ASSERT_TRUE(decode(second, b));
    EXPECT_EQ(a.frames, 2);
    EXPECT_EQ(b.frames, 3);
    EXPECT_LT(meanDifference(b.rgb[0], 2), 6.0);
    EXPECT_NE(access(intruder.c_str(), F_OK), 0);
}

TEST_F(GifRecordingTest, BadRequestsAreRefusedWithALogLineAndTheEngineGoesOn) {
    LogCapture log;
    host->startRecordGif(kScene, (dir.path() + "/none.gif").c_str(), 0, 48);
    EXPECT_FALSE(gifs()->isBusy());
    host->startRecordGif(kScene, "/nonexistent-folder/x.gif", kGifW, kGifH);
    showFrame(0);
    EXPECT_FALSE(gifs()->isRecording());
    EXPECT_EQ(log.count("gif:", ZU_LOG_WARN), 2);

    // A later good recording still works.
    const std::string path = dir.path() + "/after.gif";
    record(path, 1, 2);
    DecodedGif gif;
    ASSERT_TRUE(decode(path, gif));
    EXPECT_EQ(gif.frames, 2);
}

TEST_F(GifRecordingTest, AScaledNodeOfAnotherSizeIsScaledToTheRecordingsSize) {
    // The host made the scene's scaled output at half the size earlier.
    host->createOutputTextureScaleNode(kScene, ZuGifMgr::scaleNodeName(kScene).c_str(), 2, false, false, kGifW / 2,
                                       kGifH / 2);
    tick();
    const std::string path = dir.path() + "/scaled.gif";
    record(path, 3, 4);
    DecodedGif gif;
    ASSERT_TRUE(decode(path, gif));
    EXPECT_EQ(gif.width, kGifW);
    EXPECT_EQ(gif.height, kGifH);
    ASSERT_EQ(gif.frames, 2);
    EXPECT_LT(meanDifference(gif.rgb[0], 3), 12.0);
}

TEST(GifWrapTest, EncodesAnOddSizedFrameWithTheDefaultDelay) {
    TempDir dir;
    GifWrap gif;
    EXPECT_FALSE(gif.pushFrame(nullptr, 0)); // nothing open
    ASSERT_TRUE(gif.startGif((dir.path() + "/odd.gif").c_str(), 3, 5));
    std::vector<uint8_t> rgba(3 * 5 * 4, 200);
    EXPECT_TRUE(gif.pushFrame(rgba.data(), 0));
    EXPECT_TRUE(gif.stopGif());
    DecodedGif decoded;
    ASSERT_TRUE(decode(dir.path() + "/odd.gif", decoded));
    EXPECT_EQ(decoded.frames, 1);
    EXPECT_EQ(decoded.delays[0], 4); // the default delay
    EXPECT_NEAR(decoded.rgb[0][0], 200, 8);
}
