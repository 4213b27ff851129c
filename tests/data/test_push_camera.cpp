#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenCamera.h"
#include "data/ZuDataMgr.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class PushCameraTest : public ::testing::Test {
protected:
    void SetUp() override {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        config = app->getGlobalMgr()->getConfig();
        config->cameraImageFormat = CIF_NV21;
        config->setCameraDsp("cam", 8, 4, 90);
        host = app->getAppInter();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    ZuDataGenCamera* source() { return app->getGlobalMgr()->getDataMgr()->getDataGenCamera("cam"); }
    ZuAppMain* app = nullptr;
    ZuConfig* config = nullptr;
    ZuAppNative* host = nullptr;
};

} // namespace

TEST_F(PushCameraTest, SizeComesFromTheConfigNotTheCaller) {
    std::vector<unsigned char> frame(48, 7); // 8 x 4 NV21
    host->pushCameraData("cam", frame.data());
    EXPECT_EQ(source()->getImageSize(), 48);
    EXPECT_EQ(source()->getImageFormate(), CIF_NV21);
    EXPECT_EQ(source()->getImageWidth(), 8);
    EXPECT_EQ(source()->getImageData()[47], 7);
}

TEST_F(PushCameraTest, AWrongLengthIsDroppedAndTheLastGoodFrameStays) {
    std::vector<unsigned char> good(48, 1), bad(40, 2);
    host->pushCameraData("cam", good.data(), 48);
    testing::internal::CaptureStdout();
    host->pushCameraData("cam", bad.data(), 40);
    std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_NE(printed.find(ZuAppNative::kWrongFrameLength), std::string::npos);
    EXPECT_EQ(source()->getImageData()[0], 1);

    // With no camera format the frame size is 0, and only length 0 passes.
    config->cameraImageFormat = CIF_NONE;
    testing::internal::CaptureStdout();
    host->pushCameraData("cam", good.data(), 48);
    EXPECT_FALSE(testing::internal::GetCapturedStdout().empty());
}

TEST_F(PushCameraTest, NothingIsTakenUnlessTheEngineRuns) {
    std::vector<unsigned char> frame(48, 3);
    app->setState("test", ZU_ENG_STATE_STOPPING);
    host->pushCameraData("cam", frame.data());
    app->setState("test", ZU_ENG_STATE_RUNNING);
    EXPECT_EQ(source()->getImageSize(), 0);
}
