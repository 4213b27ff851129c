// The face-point debug node: an FP record pushed as a host does comes out
// as red squares at the landmarks in the scene picture, and nowhere else.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "node/ZuFacePointNode.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "render/ZuFboObject.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

const int kSize = 64; // camera, window and scene

// An FP record of one face whose 106 landmarks sit on a few spots (camera
// pixels, y down), little-endian as the tracker sends it.
std::vector<uint8_t> fpRecord(const std::vector<std::pair<float, float>>& spots) {
    std::vector<uint8_t> bytes;
    auto put = [&bytes](const void* value) {
        const uint8_t* b = static_cast<const uint8_t*>(value);
        bytes.insert(bytes.end(), b, b + 4); // the test hosts are little-endian like the phones
    };
    int32_t count = 1;
    put(&count);
    float angles[3] = {0, 0, 0};
    for (float& a : angles) put(&a);
    int32_t rect[4] = {0, 0, kSize, kSize};
    for (int32_t& r : rect) put(&r);
    for (int i = 0; i < 106; ++i) {
        const auto& spot = spots[i * spots.size() / 106];
        put(&spot.first);
        put(&spot.second);
    }
    return bytes;
}

bool isRed(const std::vector<uint8_t>& pixels, int x, int y) {
    const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
    return p[0] == 255 && p[1] == 0 && p[2] == 0;
}

class FacePointNodeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ZuGlobalMgr* managers = app->getGlobalMgr();
        Camera* camera = managers->getConfig()->getCamera("pts");
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
        push(new ZuOperateCreateLogicScene(app, "pts", kSize, kSize, kSize, kSize, SCALE_MODE_FULL));
        push(new ZuOperateChangeDetectDataType(app, DETECTTYPE_FP));
        frame();
        scene = managers->getSceneMgr()->getScene("pts");
        ASSERT_NE(scene, nullptr);
        node = dynamic_cast<ZuFacePointNode*>(
            managers->getNodeMgr()->getCreator()->createNode("ZuFacePointNode", "pts", "facept"));
        ASSERT_NE(node, nullptr);
        scene->addChild(node);
    }
    void pushRecord(const std::vector<uint8_t>& record) {
        app->getAppInter()->setDetectData("pts", record.data(), static_cast<int>(record.size()));
    }
    // The scene picture, bottom row first.
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }

    ZuScene* scene = nullptr;
    ZuFacePointNode* node = nullptr;
};

} // namespace

TEST_F(FacePointNodeTest, LandmarksComeOutRedWhereTheRecordPutsThem) {
    // Two spots in camera pixels; the engine counts y from the bottom, as
    // GL rows do, so (12, 10) lands on row 54 and (44, 40) on row 24.
    pushRecord(fpRecord({{12.0f, 10.0f}, {44.0f, 40.0f}}));
    frame();
    EXPECT_EQ(node->getDrawnPointCount(), 106);
    std::vector<uint8_t> pixels = scenePixels();
    EXPECT_TRUE(isRed(pixels, 12, 54));
    EXPECT_TRUE(isRed(pixels, 44, 24));
    // Squares of the default size, nothing else: every red pixel lies within
    // half a square of one of the spots.
    int red = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            if (!isRed(pixels, x, y)) continue;
            ++red;
            bool nearSpot = (std::abs(x - 12) <= 2 && std::abs(y - 54) <= 2) ||
                            (std::abs(x - 44) <= 2 && std::abs(y - 24) <= 2);
            EXPECT_TRUE(nearSpot) << "red at " << x << "," << y;
        }
    EXPECT_EQ(red, 2 * 4 * 4);

    // Larger squares on request; an absurd size is refused and changes nothing.
    node->setPointSize(8.0f);
    {
        LogCapture log;
        node->setPointSize(0.0f);
        EXPECT_EQ(log.count("point size", ZU_LOG_WARN), 1);
    }
    frame();
    pixels = scenePixels();
    EXPECT_TRUE(isRed(pixels, 12 - 3, 54 + 3));
    EXPECT_FALSE(isRed(pixels, 12 - 6, 54));
}

TEST_F(FacePointNodeTest, NoFaceNoPoints) {
    pushRecord(fpRecord({{20.0f, 20.0f}}));
    frame();
    EXPECT_TRUE(isRed(scenePixels(), 20, 44));
    // A frame without a face: the person keeps its old landmarks, but they
    // are not the latest record's and are not drawn.
    app->getAppInter()->setDetectData("pts", nullptr, 0);
    frame();
    EXPECT_EQ(node->getDrawnPointCount(), 0);
    std::vector<uint8_t> pixels = scenePixels();
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) ASSERT_FALSE(isRed(pixels, x, y)) << x << "," << y;
}
