// FP points come in window pixels: with a scene of that name, its window
// size replaces the camera's frame size in the turn into engine coordinates.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataGenFP.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectMgr.h"
#include "scene/ZuSceneMgr.h"
#include "support/GLTest.h"
#include "support/WireRecord.h"

#include <cstring>
#include <vector>

namespace {

class DetectWindowTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        managers = app->getGlobalMgr();
        managers->getDetectMgr()->init(DETECTTYPE_FP);
        managers->getDataMgr()->setDetectDataType(DETECTTYPE_FP);
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    // One FP face with every point at (x, y).
    static std::vector<uint8_t> record(int top, float x, float y) { return fpFaceRecord({}, {x, y}, {1, top, 2, 3}); }
    ZuAppMain* app = nullptr;
    ZuGlobalMgr* managers = nullptr;
};

} // namespace

TEST_F(DetectWindowTest, TheScenesWindowSizeReplacesTheCamerasFrame) {
    ASSERT_NE(managers->getSceneMgr()->createScene("win", 72, 128, 72, 128), nullptr);
    ZuDataGenFP* gen = managers->getDataMgr()->getDataGenFP();
    for (const char* scene : {"win", "nowin"}) {
        Camera* camera = managers->getConfig()->getCamera(scene);
        camera->width = 1280;
        camera->height = 720;
        const bool window = std::strcmp(scene, "win") == 0;
        const float w = window ? 72.0f : 1280.0f, h = window ? 128.0f : 720.0f;

        camera->angle = 90;
        std::vector<uint8_t> r = record(10, 5.0f, 7.0f);
        app->getAppInter()->setDetectData(scene, r.data(), static_cast<int>(r.size()));
        const PERSON_FP_DATA* face = gen->getData(scene, 1);
        ASSERT_NE(face, nullptr);
        EXPECT_EQ(face->top, static_cast<int>(h) - 10) << scene;
        EXPECT_FLOAT_EQ(face->facePoints[0], 7.0f);
        EXPECT_FLOAT_EQ(face->facePoints[1], 5.0f);

        camera->angle = 270;
        app->getAppInter()->setDetectData(scene, r.data(), static_cast<int>(r.size()));
        EXPECT_FLOAT_EQ(face->facePoints[210], h - 7.0f) << scene;
        EXPECT_FLOAT_EQ(face->facePoints[211], w - 5.0f) << scene;
    }
}
