// The face debug nodes: an FP record pushed as a host does comes out as red
// squares on the landmarks, red lines on the face's box and head axes, and
// nowhere else.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "node/face/ZuFaceAxis.h"
#include "node/face/ZuFacePointNode.h"
#include "node/face/ZuFaceRectNote.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/WireRecord.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

namespace {

const int kSize = 64; // camera, window and scene

// One FP face: a rectangle, and landmarks on one spot but for a few.
std::vector<uint8_t> fpRecord(const std::array<int32_t, 4>& rect, const LandmarkMap& points) {
    return fpFaceRecord(points, {32.0f, 60.0f}, rect);
}

// An FP record whose 106 landmarks are spread over a few spots in turn.
std::vector<uint8_t> spotsRecord(const std::vector<std::pair<float, float>>& spots) {
    std::map<int, std::pair<float, float>> points;
    for (int i = 0; i < 106; ++i) points[i] = spots[i * spots.size() / 106];
    return fpRecord({0, 0, kSize, kSize}, points);
}

bool isRed(const std::vector<uint8_t>& pixels, int x, int y) {
    if (x < 0 || y < 0 || x >= kSize || y >= kSize) return false;
    const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
    return p[0] == 255 && p[1] == 0 && p[2] == 0;
}
// A line may fall on either side of a pixel border: one pixel of slack.
bool redNear(const std::vector<uint8_t>& pixels, int x, int y) {
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            if (isRed(pixels, x + dx, y + dy)) return true;
    return false;
}

class FaceDebugNodeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        scene = createSquareScene("dbg", kSize);
        ASSERT_NE(scene, nullptr);
    }
    template <class Node> Node* addNode(const char* type, const char* name) {
        Node* node = dynamic_cast<Node*>(app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode(type, "dbg", name));
        if (node) scene->addChild(node);
        return node;
    }
    void pushRecord(const std::vector<uint8_t>& record) {
        app->getAppInter()->setDetectData("dbg", record.data(), static_cast<int>(record.size()));
    }
    // The scene picture, bottom row first.
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }

    ZuScene* scene = nullptr;
};

} // namespace

TEST_F(FaceDebugNodeTest, TheRectangleIsOutlinedAndItsInsideLeftAlone) {
    ZuFaceRectNote* node = addNode<ZuFaceRectNote>("ZuFaceRectNote", "facerect");
    ASSERT_NE(node, nullptr);
    // Left 10, top 14, right 50, bottom 44 in camera pixels: with y counted
    // from the bottom, rows 20 to 50.
    pushRecord(fpRecord({10, 14, 50, 44}, {}));
    frame();
    EXPECT_EQ(node->getDrawnSegmentCount(), 4);
    const std::vector<uint8_t> pixels = scenePixels();
    for (int t = 14; t <= 46; t += 4) {
        EXPECT_TRUE(redNear(pixels, t, 20)) << "bottom edge at " << t;
        EXPECT_TRUE(redNear(pixels, t, 50)) << "top edge at " << t;
    }
    for (int t = 24; t <= 46; t += 4) {
        EXPECT_TRUE(redNear(pixels, 10, t)) << "left edge at " << t;
        EXPECT_TRUE(redNear(pixels, 50, t)) << "right edge at " << t;
    }
    // Every red pixel lies on an edge: the inside and the surroundings stay.
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            if (!isRed(pixels, x, y)) continue;
            const bool onVertical = (std::abs(x - 10) <= 1 || std::abs(x - 50) <= 1) && y >= 19 && y <= 51;
            const bool onHorizontal = (std::abs(y - 20) <= 1 || std::abs(y - 50) <= 1) && x >= 9 && x <= 51;
            EXPECT_TRUE(onVertical || onHorizontal) << "red at " << x << "," << y;
        }

    // No face: nothing drawn.
    app->getAppInter()->setDetectData("dbg", nullptr, 0);
    frame();
    EXPECT_EQ(node->getDrawnSegmentCount(), 0);
    const std::vector<uint8_t> empty = scenePixels();
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) ASSERT_FALSE(isRed(empty, x, y)) << x << "," << y;
}

TEST_F(FaceDebugNodeTest, TheAxesRunFromEyeToEyeAndDownTheNose) {
    ZuFaceAxis* node = addNode<ZuFaceAxis>("ZuFaceAxis", "faceaxis");
    ASSERT_NE(node, nullptr);
    // FP: 74 and 77 are the eyes, 43 the bridge top, 49 the nose bottom.
    pushRecord(fpRecord({0, 0, kSize, kSize}, {{74, {12.0f, 30.0f}}, {77, {52.0f, 30.0f}},
                                              {43, {32.0f, 20.0f}}, {49, {32.0f, 56.0f}}}));
    frame();
    EXPECT_EQ(node->getDrawnSegmentCount(), 2);
    const std::vector<uint8_t> pixels = scenePixels();
    // Eye line on row 34 from x 12 to 52, nose line on column 32 from row 44 down to 8.
    for (int x = 16; x <= 48; x += 4) EXPECT_TRUE(redNear(pixels, x, 34)) << "eye line at " << x;
    for (int y = 12; y <= 40; y += 4) EXPECT_TRUE(redNear(pixels, 32, y)) << "nose line at " << y;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            if (!isRed(pixels, x, y)) continue;
            const bool onEyes = std::abs(y - 34) <= 1 && x >= 11 && x <= 53;
            const bool onNose = std::abs(x - 32) <= 1 && y >= 7 && y <= 45;
            EXPECT_TRUE(onEyes || onNose) << "red at " << x << "," << y;
        }
}

TEST_F(FaceDebugNodeTest, PointsLandmarksComeOutRedWhereTheRecordPutsThem) {
    ZuFacePointNode* node = addNode<ZuFacePointNode>("ZuFacePointNode", "facept");
    ASSERT_NE(node, nullptr);
    // Two spots in camera pixels; the engine counts y from the bottom, as
    // GL rows do, so (12, 10) lands on row 54 and (44, 40) on row 24.
    pushRecord(spotsRecord({{12.0f, 10.0f}, {44.0f, 40.0f}}));
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

TEST_F(FaceDebugNodeTest, PointsNoFaceNoPoints) {
    ZuFacePointNode* node = addNode<ZuFacePointNode>("ZuFacePointNode", "facept");
    ASSERT_NE(node, nullptr);
    pushRecord(spotsRecord({{20.0f, 20.0f}}));
    frame();
    EXPECT_TRUE(isRed(scenePixels(), 20, 44));
    // A frame without a face: the person keeps its old landmarks, but they
    // are not the latest record's and are not drawn.
    app->getAppInter()->setDetectData("dbg", nullptr, 0);
    frame();
    EXPECT_EQ(node->getDrawnPointCount(), 0);
    std::vector<uint8_t> pixels = scenePixels();
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) ASSERT_FALSE(isRed(pixels, x, y)) << x << "," << y;
}
