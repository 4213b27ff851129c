#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenCamera.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

// Stands in for a background node: copies the frame out when told.
struct FrameListener : public ZuObject {
    void onFrame(ZuObject* source) {
        auto* camera = static_cast<ZuDataGenCamera*>(source);
        ++calls;
        const unsigned char* data = camera->getImageData();
        last.assign(data, data + camera->getImageSize());
        // A torn frame would mix the fill bytes of two pushes.
        for (unsigned char byte : last)
            if (byte != last[0]) ++tornFrames;
    }
    int calls = 0;
    int tornFrames = 0;
    std::vector<unsigned char> last;
};

class CameraSourceTest : public ::testing::Test {
protected:
    void SetUp() override {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        data = app->getGlobalMgr()->getDataMgr();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    ZuAppMain* app = nullptr;
    ZuDataMgr* data = nullptr;
};

} // namespace

TEST(CameraFrameSize, FollowsTheFormatTable) {
    EXPECT_EQ(cameraFrameSize(CIF_GRAY, 4, 2), 8);
    EXPECT_EQ(cameraFrameSize(CIF_NV21, 1280, 720), 1382400);
    EXPECT_EQ(cameraFrameSize(CIF_I420, 5, 3), 22); // int(22.5)
    EXPECT_EQ(cameraFrameSize(CIF_BGRA, 4, 2), 32);
    EXPECT_EQ(cameraFrameSize(CIF_RGB, 4, 2), 24);
    EXPECT_EQ(cameraFrameSize(CIF_NONE, 4, 2), 0);
    EXPECT_EQ(cameraFrameSize(42, 4, 2), 0);
    EXPECT_EQ(cameraFrameSize(CIF_RGBA, -4, 2), 0);
}

TEST_F(CameraSourceTest, OnlyTheLatestFrameIsDeliveredOncePerTick) {
    ZuDataGenCamera* camera = data->getDataGenCamera("never-seen");
    ASSERT_NE(camera, nullptr);
    EXPECT_EQ(data->getDataGenCamera("never-seen"), camera);
    FrameListener listener;
    camera->registListenFunc(&listener, &FrameListener::onFrame);
    app->update(); // a fresh source counts as changed once
    int baseline = listener.calls;

    std::vector<unsigned char> first(16, 1), second(16, 2);
    camera->writeData(4, 4, CIF_GRAY, first.data(), 16);
    camera->writeData(4, 4, CIF_GRAY, second.data(), 16);
    app->update();
    EXPECT_EQ(listener.calls, baseline + 1);
    EXPECT_EQ(listener.last, second);
    app->update(); // nothing new
    EXPECT_EQ(listener.calls, baseline + 1);

    // A null frame keeps the old one but listeners run again.
    camera->writeData(4, 4, CIF_GRAY, nullptr, 16);
    app->update();
    EXPECT_EQ(listener.calls, baseline + 2);
    EXPECT_EQ(listener.last, second);
    camera->unregistListenFunc(&listener, &FrameListener::onFrame);
}

TEST_F(CameraSourceTest, SharedSwapWinsOverLaterCopies) {
    ZuDataGenCamera* camera = data->getDataGenCamera("shared");
    auto* hostSwap = new ZuDataSwap();
    hostSwap->aplly(8);
    camera->shaderSwapData(2, 2, CIF_BGRA, hostSwap, 8);
    EXPECT_EQ(camera->getImageData(), hostSwap->getData());
    std::vector<unsigned char> frame(8, 9);
    camera->writeData(2, 2, CIF_BGRA, frame.data(), 8);
    EXPECT_EQ(camera->getImageData(), hostSwap->getData());
    hostSwap->release();
}

TEST_F(CameraSourceTest, PushesFromAHostThreadNeverTearAFrame) {
    ZuDataGenCamera* camera = data->getDataGenCamera("live");
    FrameListener listener;
    camera->registListenFunc(&listener, &FrameListener::onFrame);
    const int frameBytes = 64 * 64 * 3 / 2;
    std::atomic<bool> stop{false};
    std::thread host([&] {
        std::vector<unsigned char> frame(frameBytes);
        for (unsigned char fill = 0; !stop; ++fill) {
            std::fill(frame.begin(), frame.end(), fill);
            camera->writeData(64, 64, CIF_NV21, frame.data(), frameBytes);
        }
    });
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (listener.calls < 50 && std::chrono::steady_clock::now() < deadline) {
        app->update();
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    stop = true;
    host.join();
    EXPECT_GE(listener.calls, 50);
    EXPECT_EQ(listener.tornFrames, 0);
    camera->unregistListenFunc(&listener, &FrameListener::onFrame);
}

TEST(DataSwapCache, WriterBlocksOnAFullRingUntilTheReaderFreesASlot) {
    auto* ring = new ZuDataSwapCache();
    EXPECT_EQ(ring->getWriteData(), nullptr); // no slots yet
    ring->init(2);
    ring->setBufSize(4);
    ASSERT_NE(ring->getWriteData(), nullptr);
    EXPECT_EQ(ring->getReadData(), nullptr);
    ring->incWrite();
    EXPECT_NE(ring->getReadData(), nullptr);

    std::atomic<bool> secondWriteReturned{false};
    std::thread writer([&] {
        ring->incWrite(); // fills the ring: blocks
        secondWriteReturned = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(secondWriteReturned);
    EXPECT_TRUE(ring->isFull());
    EXPECT_EQ(ring->getWriteData(), nullptr);
    ring->incRead();
    writer.join();
    EXPECT_TRUE(secondWriteReturned);
    EXPECT_FALSE(ring->isFull());
    ring->release();
}
