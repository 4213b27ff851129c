#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kConfigs = std::string(QZ_SOURCE_DIR) + "/tests/basesys/data/config/";

// A started config and a file manager whose only search path is dir.
class ConfigTest : public ::testing::Test {
protected:
    void SetUp() override {
        config = new ZuConfig(nullptr);
        config->init();
        files = new ZuFileMgr(nullptr);
        files->init();
    }
    void TearDown() override {
        files->destroy();
        files->release();
        config->destroy();
        config->release();
    }
    bool loadFrom(const std::string& dir) {
        files->addRespath(dir.c_str());
        return config->loadConfigFrom(files);
    }
    bool loadText(const std::string& text) {
        return config->loadConfigText(text.data(), text.size());
    }
    // The values a started engine has when no file changes them.
    void expectDefaults() {
        EXPECT_EQ(config->getDetectType(), 0);
        EXPECT_EQ(config->getWidth(), 720);
        EXPECT_EQ(config->getHeight(), 1280);
        EXPECT_EQ(config->getDesignWidth(), 720);
        EXPECT_EQ(config->getDesignHeight(), 1280);
        EXPECT_EQ(config->getDesignImageWidth(), 700);
        EXPECT_EQ(config->getDesignImageHeight(), 1004);
        EXPECT_EQ(config->cameraImageFormat, 8);
        EXPECT_EQ(config->faceBeautyType, 6);
        EXPECT_EQ(config->adaptmode, 1);
        EXPECT_EQ(config->glversion, 0x20000);
        EXPECT_FALSE(config->alwaysShowOne);
        EXPECT_EQ(config->maxAddQueueNum, 0u);
        EXPECT_EQ(config->playDeltaTime, 0);
        Camera* camera = config->getCamera("_def_camera0");
        EXPECT_EQ(camera->width, 1280);
        EXPECT_EQ(camera->height, 720);
        EXPECT_EQ(camera->angle, 90);
        EXPECT_FALSE(camera->mirror);
        EXPECT_EQ(camera->adaptScale, ZuVec3(1.0f, 1.0f, 1.0f));
        const CfgFilter& f = config->filter;
        for (int flag : {f.mask2d, f.mask3d, f.bone2d, f.bone3d, f.frame2d, f.distort, f.gpuMorph,
                         f.morph, f.gather, f.particle, f.sky, f.audio, f.pet, f.swapface})
            EXPECT_EQ(flag, 1);
    }

    ZuConfig* config = nullptr;
    ZuFileMgr* files = nullptr;
};

} // namespace

// --- Reading the file -------------------------------------------------------------

TEST_F(ConfigTest, WithoutAFileTheDefaultsHoldAndOnlyADebugLineIsLogged) {
    TempDir empty;
    LogCapture log;
    EXPECT_FALSE(loadFrom(empty.path()));
    expectDefaults();
    EXPECT_EQ(log.count("shader/olcfg.json", ZU_LOG_DEBUG), 1);
    EXPECT_EQ(log.count("", ZU_LOG_INFO), 0);
}

TEST_F(ConfigTest, FileOverlaysTheKeysItHolds) {
    LogCapture log;
    ASSERT_TRUE(loadFrom(kConfigs + "override/"));
    EXPECT_EQ(log.count("", ZU_LOG_INFO), 0);

    EXPECT_EQ(config->getDetectType(), 2);
    EXPECT_EQ(config->getDesignWidth(), 1080);
    EXPECT_EQ(config->getDesignHeight(), 1920);
    // The design picture keys size the default camera, not the design image.
    EXPECT_EQ(config->getDesignImageWidth(), 700);
    EXPECT_EQ(config->getDesignImageHeight(), 1004);
    Camera* camera = config->getCamera("_def_camera0");
    EXPECT_EQ(camera->width, 1920);  // "camera_width" wins over "design_img_width"
    EXPECT_EQ(camera->height, 480);  // only "design_img_height" was given
    EXPECT_EQ(camera->angle, 90);    // 90.7 cut
    EXPECT_EQ(config->adaptmode, 0);
    EXPECT_EQ(config->glversion, 0x30000);
    EXPECT_TRUE(config->alwaysShowOne);
    EXPECT_EQ(config->maxAddQueueNum, 4u);
    EXPECT_EQ(config->playDeltaTime, 2); // 2.9 cut
    // Keys the file lacks keep their values.
    EXPECT_EQ(config->getWidth(), 720);
    EXPECT_EQ(config->cameraImageFormat, 8);

    // Only exactly 1 is on: 0 and 2 both switch a flag off.
    EXPECT_FALSE(CfgFilter::isOn(config->filter.mask2d));
    EXPECT_EQ(config->filter.mask3d, 2);
    EXPECT_FALSE(CfgFilter::isOn(config->filter.mask3d));
    EXPECT_FALSE(CfgFilter::isOn(config->filter.swapface));
    EXPECT_TRUE(CfgFilter::isOn(config->filter.particle));
    EXPECT_TRUE(CfgFilter::isOn(config->filter.bone2d));
    EXPECT_TRUE(CfgFilter::isOn(config->filter.gather));
}

TEST_F(ConfigTest, UsepboChangesNothing) {
    ASSERT_TRUE(loadText(R"({"param": {"usepbo": 1}, "filter": {"gather": 0}})"));
    expectDefaults(); // "gather" has no key either
}

TEST_F(ConfigTest, ShippedFileMatchesTheBuiltInDefaults) {
    LogCapture log;
    ASSERT_TRUE(loadFrom(std::string(QZ_SOURCE_DIR) + "/assets/"));
    EXPECT_EQ(log.count("", ZU_LOG_INFO), 0);
    expectDefaults();
}

TEST_F(ConfigTest, LoadConfigReadsThroughTheEnginesFileManager) {
    ZuAppMain* app = new ZuAppMain;
    app->init();
    app->addRespath((kConfigs + "override/").c_str());
    ZuConfig* engineConfig = new ZuConfig(app);
    engineConfig->init();
    engineConfig->loadConfig();
    EXPECT_EQ(engineConfig->getDesignWidth(), 1080);
    engineConfig->release();
    app->destroy();
    app->release();

    // Without an engine there is nothing to read through.
    LogCapture log;
    config->loadConfig();
    EXPECT_EQ(log.count("no file manager", ZU_LOG_WARN), 1);
    expectDefaults();
}

// --- Bad files: defaults stay, one warning says why --------------------------------------

TEST_F(ConfigTest, EmptyFileIsReportedOnce) {
    LogCapture log;
    EXPECT_FALSE(loadFrom(kConfigs + "empty/"));
    EXPECT_EQ(log.count("is empty", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.lines().size(), 1u);
    expectDefaults();
}

TEST_F(ConfigTest, BrokenJsonIsReportedOnceAndChangesNothing) {
    LogCapture log;
    EXPECT_FALSE(loadFrom(kConfigs + "broken/"));
    EXPECT_EQ(log.count("not valid JSON", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.lines().size(), 1u);
    // The broken file begins with a good design_width; it must not apply.
    expectDefaults();
}

TEST_F(ConfigTest, NonObjectDocumentsAndHiddenZeroBytesAreRefused) {
    for (const std::string& text :
         {std::string("[1, 2]"), std::string("42"), std::string("\"param\""), std::string("  \n")}) {
        LogCapture log;
        EXPECT_FALSE(loadText(text)) << text;
        EXPECT_EQ(log.count("", ZU_LOG_WARN), 1) << text;
    }
    LogCapture log;
    // Text after a zero byte would be invisible to a C-string parser.
    EXPECT_FALSE(loadText(std::string("{}\0{\"param\":{\"glversion\":1}}", 28)));
    EXPECT_EQ(log.count("not valid JSON", ZU_LOG_WARN), 1);
    expectDefaults();
}

TEST_F(ConfigTest, WronglyTypedKeysAreSkippedAndReportedInOneLine) {
    LogCapture log;
    ASSERT_TRUE(loadFrom(kConfigs + "wrongtype/"));
    auto lines = log.lines();
    ASSERT_EQ(lines.size(), 1u);
    for (const char* key : {"param.design_width", "param.camera_angle", "param.glversion",
                            "filter.2dmask"})
        EXPECT_NE(lines[0].find(key), std::string::npos) << key;
    EXPECT_EQ(lines[0].find("design_height"), std::string::npos);

    EXPECT_EQ(config->getDesignWidth(), 720);
    EXPECT_EQ(config->getDesignHeight(), 1000);
    EXPECT_EQ(config->getCamera("_def_camera0")->angle, 90);
    EXPECT_EQ(config->glversion, 0x20000);
    EXPECT_EQ(config->maxAddQueueNum, 7u);
    EXPECT_EQ(config->filter.mask2d, 1);
    EXPECT_EQ(config->filter.pet, 0);
}

TEST_F(ConfigTest, SectionsOfTheWrongTypeAreSkippedAlone) {
    LogCapture log;
    ASSERT_TRUE(loadText(R"({"param": [1], "filter": {"sky": 0}})"));
    EXPECT_EQ(log.count("param (object)", ZU_LOG_WARN), 1);
    EXPECT_EQ(config->filter.sky, 0);

    ASSERT_TRUE(loadText(R"({"param": {"adaptmode": 3}, "filter": 5})"));
    EXPECT_EQ(log.count("filter (object)", ZU_LOG_WARN), 1);
    EXPECT_EQ(config->adaptmode, 3);
}

TEST_F(ConfigTest, NumbersThatCannotBeCutToIntAreSkipped) {
    LogCapture log;
    ASSERT_TRUE(loadText(R"({"param": {"camera_angle": 1e20, "playDeltaTime": -3e12,
                                       "design_width": 4294967296, "adaptmode": 1.5}})"));
    EXPECT_EQ(log.lines().size(), 1u);
    expectDefaults();

    ASSERT_TRUE(loadText(R"({"param": {"camera_angle": -90.9, "playDeltaTime": 0.4}})"));
    EXPECT_EQ(config->getCamera("_def_camera0")->angle, -90);
    EXPECT_EQ(config->playDeltaTime, 0);
}

// --- Camera records ------------------------------------------------------------------

TEST_F(ConfigTest, CameraRecordsAreMadeOnDemand) {
    Camera* camera = config->getCamera("scene");
    ASSERT_NE(camera, nullptr);
    EXPECT_EQ(camera, config->getCamera("scene"));
    EXPECT_EQ(camera->width, 1280);
    EXPECT_EQ(camera->height, 720);
    EXPECT_EQ(camera->angle, 90);
    EXPECT_EQ(camera->adaptScale, ZuVec3(0.0f, 0.0f, 0.0f));
    EXPECT_NE(config->getCamera(nullptr), nullptr);
    EXPECT_EQ(config->cameras.size(), 3u);
}

TEST_F(ConfigTest, CameraDspAdaptsTheScaleToTheDesign) {
    config->setCameraDsp("x", 1920, 1080, 0);
    Camera* camera = config->getCamera("x");
    EXPECT_EQ(camera->width, 1920);
    EXPECT_EQ(camera->height, 1080);
    EXPECT_EQ(camera->angle, 0);
    EXPECT_FLOAT_EQ(camera->adaptScale.x, 1920.0f / 720.0f);
    EXPECT_FLOAT_EQ(camera->adaptScale.y, 1080.0f / 1280.0f);
    EXPECT_EQ(camera->adaptScale.z, 0.0f);

    // On its side the frame's height runs along x.
    config->setCameraDsp("x", 1920, 1080, 270);
    EXPECT_FLOAT_EQ(camera->adaptScale.x, 1080.0f / 720.0f);
    EXPECT_FLOAT_EQ(camera->adaptScale.y, 1920.0f / 1280.0f);
    config->setCameraDsp("x", 1920, 1080, 180);
    EXPECT_FLOAT_EQ(camera->adaptScale.x, 1920.0f / 720.0f);

    config->setCameraDsp("_def_camera0", 1280, 720, 90);
    EXPECT_EQ(config->getCamera("_def_camera0")->adaptScale, ZuVec3(1.0f, 1.0f, 1.0f));
}

TEST_F(ConfigTest, CameraDspWithoutAdaptModeOnlyStores) {
    config->adaptmode = 0;
    config->setCameraDsp("y", 640, 480, 0);
    Camera* camera = config->getCamera("y");
    EXPECT_EQ(camera->width, 640);
    EXPECT_EQ(camera->adaptScale, ZuVec3(0.0f, 0.0f, 0.0f));

    // A design size of 0 from the file cannot scale; the scale stays.
    config->adaptmode = 1;
    config->setDesignSize(0, 1280);
    LogCapture log;
    config->setCameraDsp("y", 640, 480, 0);
    EXPECT_EQ(camera->adaptScale, ZuVec3(0.0f, 0.0f, 0.0f));
    EXPECT_EQ(log.count("design size", ZU_LOG_WARN), 1);
}

TEST_F(ConfigTest, DestroyResetsSizesButKeepsCameras) {
    ASSERT_TRUE(loadFrom(kConfigs + "override/"));
    config->setSize(100, 200);
    config->cameraImageFormat = 3;
    config->setCameraDsp("kept", 640, 480, 0);
    config->destroy();
    EXPECT_EQ(config->getWidth(), 720);
    EXPECT_EQ(config->getHeight(), 1280);
    EXPECT_EQ(config->getDesignWidth(), 720);
    EXPECT_EQ(config->cameraImageFormat, 8);
    EXPECT_EQ(config->adaptmode, 1);
    EXPECT_EQ(config->glversion, 0x20000);
    EXPECT_EQ(config->getCamera("kept")->width, 640);

    // init puts the default camera back.
    config->init();
    EXPECT_EQ(config->getCamera("_def_camera0")->width, 1280);
    EXPECT_EQ(config->getCamera("_def_camera0")->height, 720);
}
