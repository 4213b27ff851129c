// The utility node types: the sky dome's mesh and its place in depth, the
// seeded test box, the flat test plane, the design picture and the
// bounding-box outline. A dark picture is painted first; the checks read
// the scene's pixels at design points.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuBoundingBoxEvent.h"
#include "event/ZuEventMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "render/material/ZuMaterialColorSelect3d.h"
#include "scene/Zu3DBox.h"
#include "scene/Zu3DPlane.h"
#include "scene/ZuDesignPlane.h"
#include "scene/ZuDrawBoundingBoxNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuSkyDomeNode.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/PicturePainterNode.h"
#include "platform/ZuHeadlessContext.h"

#include <GLES2/gl2.h>
#include <cmath>
#include <chrono>
#include <functional>
#include <thread>

namespace {

using Bytes = std::vector<uint8_t>;
// The scene's camera shows its own size in design units: a full-size scene
// puts the design points where a host's scene has them.
const int kW = 720, kH = 1280;

class DarkPainterNode : public PicturePainterNode {
public:
    explicit DarkPainterNode(ZuAppMain* app) : PicturePainterNode(app) {}

protected:
    Bytes picture(int* width, int* height) const override {
        *width = kW;
        *height = kH;
        Bytes pixels(kW * kH * 4, 20);
        for (size_t i = 3; i < pixels.size(); i += 4) pixels[i] = 255;
        return pixels;
    }
};

class UtilityNodeTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override {
        return {std::string(QZ_SOURCE_DIR) + "/samples/packages/"};
    }
    void SetUp() override {
        EngineTest::SetUp();
        nodes = app->getGlobalMgr()->getNodeMgr();
        nodes->getCreator()->registCreateFunc("DarkPainterNode", zuCreateNodeOfType<DarkPainterNode>);
        app->getAppInter()->createLogicSceneFull("u", kW, kH, kW, kH);
        frame();
        scene = app->getGlobalMgr()->getSceneMgr()->getScene("u");
        ASSERT_NE(scene, nullptr);
        ZuNode* painter = nodes->getCreator()->createNode("DarkPainterNode", "u", "painter");
        ASSERT_NE(painter, nullptr);
        scene->addChild(painter);
        frame();
    }
    template <class T> T* addNode(const char* type, const char* name) {
        auto* node = dynamic_cast<T*>(nodes->getCreator()->createNode(type, "u", name));
        if (node) scene->addChild(node);
        return node;
    }
    Bytes picture() {
        GLuint fb = 0;
        glGenFramebuffers(1, &fb);
        glBindFramebuffer(GL_FRAMEBUFFER, fb);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                               scene->getFbo()->getMainTex()->getid(), 0);
        Bytes pixels = GLTest::readPixels(0, 0, kW, kH);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glDeleteFramebuffers(1, &fb);
        return pixels;
    }
    // The pixel under a design point (y up).
    static const uint8_t* atDesign(const Bytes& pixels, float x, float y) {
        int px = std::min(std::max(static_cast<int>(x), 0), kW - 1);
        int py = std::min(std::max(static_cast<int>(y), 0), kH - 1);
        return &pixels[(py * kW + px) * 4];
    }
    ZuTexture* solidTexture(const char* name, uint8_t r, uint8_t g, uint8_t b) {
        Bytes pixels(4 * 4 * 4);
        for (size_t i = 0; i < pixels.size(); i += 4) {
            pixels[i] = r;
            pixels[i + 1] = g;
            pixels[i + 2] = b;
            pixels[i + 3] = 255;
        }
        return app->getGlobalMgr()->getTexMgr()->createNullTextureWithData(name, 4, 4, GL_RGBA, GL_RGBA,
                                                                           pixels.data());
    }
    // The window (the context's 64 x 64 surface), which the debug-screen
    // stream draws on after the scene is copied there. It still draws
    // through the scene's viewport, so a design point is a window pixel.
    static const int kWin = ZuHeadlessContext::kSurfaceWidth;
    static Bytes window() {
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return GLTest::readPixels(0, 0, kWin, kWin);
    }
    static const uint8_t* atWindow(const Bytes& pixels, int x, int y) { return &pixels[(y * kWin + x) * 4]; }
    static bool is(const uint8_t* p, int r, int g, int b, int slack = 3) {
        return std::abs(p[0] - r) <= slack && std::abs(p[1] - g) <= slack && std::abs(p[2] - b) <= slack;
    }

    ZuNodeMgr* nodes = nullptr;
    ZuScene* scene = nullptr;
};

} // namespace

TEST_F(UtilityNodeTest, DomeMeshFollowsItsColumnsRowsAndCoverage) {
    auto* dome = addNode<ZuSkyDomeNode>("ZuSkyDomeNode", "dome");
    ASSERT_NE(dome, nullptr);
    dome->generateSkyDome(nullptr, 50, 15, 1.0f, 2.0f, 2000.0f);
    EXPECT_EQ(dome->getVertexCount(), 816);
    EXPECT_EQ(dome->getIndexCount(), 3 * 50 * (1 + 2 * 14));
    for (int i = 0; i < dome->getIndexCount(); ++i) ASSERT_LT(dome->getIndices()[i], 816);
    // Whole sphere: each column runs from the top (z = r) to the opposite point.
    const float* v = dome->getVertices();
    EXPECT_NEAR(v[2], 2000.0f, 1e-2f);
    EXPECT_NEAR(v[15 * 5 + 2], -2000.0f, 0.5f);
    EXPECT_FLOAT_EQ(v[15 * 5 + 4], 1.0f) << "v runs to the texture repeat";

    std::vector<float> half(dome->getVertices(), dome->getVertices() + 816 * 5);
    dome->generateSkyDome(nullptr, 50, 15, 1.0f, -1.0f, 2000.0f);
    EXPECT_EQ(std::vector<float>(dome->getVertices(), dome->getVertices() + 816 * 5),
              (dome->generateSkyDome(nullptr, 50, 15, 1.0f, 1.0f, 2000.0f),
               std::vector<float>(dome->getVertices(), dome->getVertices() + 816 * 5)));
    EXPECT_NEAR(dome->getVertices()[15 * 5 + 2], 0.0f, 0.5f) << "a half dome ends at the horizon";
    dome->generateSkyDome(nullptr, 50, 15, 1.0f, 3.0f, 2000.0f);
    EXPECT_EQ(std::vector<float>(dome->getVertices(), dome->getVertices() + 816 * 5), half);

    LogCapture log;
    dome->generateSkyDome(nullptr, 0, 15, 1.0f, 2.0f, 2000.0f);
    dome->generateSkyDome(nullptr, 300, 300, 1.0f, 2.0f, 2000.0f);
    dome->generateSkyDome(nullptr, 50, 15, 1.0f, 2.0f, NAN);
    EXPECT_EQ(log.count("precondition failed", ZU_LOG_WARN), 3);
    EXPECT_EQ(dome->getVertexCount(), 816) << "a refused build keeps the last dome";
}

TEST_F(UtilityNodeTest, DomeCoversTheBackgroundAndStaysBehindNearerModels) {
    auto* dome = addNode<ZuSkyDomeNode>("ZuSkyDomeNode", "dome");
    ASSERT_NE(dome, nullptr);
    dome->setPositionX(360.0f, 640.0f, 0.0f);
    dome->generateSkyDome(solidTexture("sky_blue", 40, 90, 220), ZuSkyDomeNode::kColumns, ZuSkyDomeNode::kRows,
                          ZuSkyDomeNode::kTextureRepeat, ZuSkyDomeNode::kCoverage, ZuSkyDomeNode::kRadius);
    frame();
    Bytes sky = picture();
    for (size_t i = 0; i < sky.size(); i += 4) ASSERT_TRUE(is(&sky[i], 40, 90, 220)) << "pixel " << i / 4;

    // A box at the design centre is far nearer than the dome: it shows.
    app->getRandom().setSeed(5);
    auto* nearBox = addNode<Zu3DBox>("Zu3DBox", "near");
    ASSERT_NE(nearBox, nullptr);
    frame();
    Bytes withBox = picture();
    const ZuColor c = nearBox->getColor();
    const uint8_t* centre = atDesign(withBox, 360, 640);
    EXPECT_TRUE(is(centre, int(c.r * 255), int(c.g * 255), int(c.b * 255), 2)) << int(centre[0]) << " "
                                                                                << int(centre[1]) << " " << int(centre[2]);
    EXPECT_TRUE(is(atDesign(withBox, 20, 20), 40, 90, 220)) << "the sky round it";

    // A box beyond the dome's radius is hidden by it: the dome writes depth.
    nearBox->setPositionX(360.0f, 640.0f, -3000.0f);
    frame();
    Bytes farBox = picture();
    EXPECT_TRUE(is(atDesign(farBox, 360, 640), 40, 90, 220));
    dome->setVisible(false);
    frame();
    EXPECT_FALSE(is(atDesign(picture(), 360, 640), 20, 20, 20)) << "without the dome the far box shows";
}

TEST_F(UtilityNodeTest, TheSkyDomeSamplePackagePutsASkyBehindTheScene) {
    app->getAppInter()->loadEffect("u", "style_skydome", 61, 0);
    ZuSkyDomeNode* dome = nullptr;
    for (int i = 0; i < 1000 && !(dome && dome->getTexture() && dome->getTexture()->getbLoad()); ++i) {
        frame();
        for (ZuNode* child : scene->getChildren())
            if (auto* found = dynamic_cast<ZuSkyDomeNode*>(child)) dome = found;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_NE(dome, nullptr);
    EXPECT_EQ(dome->getresUID(), 61);
    EXPECT_EQ(dome->getVertexCount(), 816);
    frame();
    // Looking down at the dome's lower half: ground haze, green over blue,
    // and no trace of the dark picture.
    const Bytes sky = picture();
    const uint8_t* centre = atDesign(sky, 360, 640);
    EXPECT_GT(centre[1], 90);
    EXPECT_GT(centre[1], centre[2]);
    app->getAppInter()->delEffect("u", "style_skydome", 61);
    frame();
    frame();
    EXPECT_TRUE(is(atDesign(picture(), 360, 640), 20, 20, 20)) << "the dome leaves with its effect";
}

TEST_F(UtilityNodeTest, DomeWithoutATextureOrMeshDrawsNothing) {
    Bytes before = picture();
    auto* dome = addNode<ZuSkyDomeNode>("ZuSkyDomeNode", "dome");
    ASSERT_NE(dome, nullptr);
    frame();
    EXPECT_EQ(picture(), before) << "no mesh yet";
    dome->generateSkyDome(nullptr, 50, 15, 1.0f, 2.0f, 2000.0f);
    frame();
    EXPECT_EQ(picture(), before) << "no texture";
}

TEST_F(UtilityNodeTest, BoxLookComesFromTheSeededSourceAndItsPickColourIsItsId) {
    app->getRandom().setSeed(42);
    auto* first = addNode<Zu3DBox>("Zu3DBox", "a");
    app->getRandom().setSeed(42);
    auto* second = addNode<Zu3DBox>("Zu3DBox", "b");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->getColor(), second->getColor());
    EXPECT_FLOAT_EQ(first->getRotationX(), second->getRotationX());
    EXPECT_TRUE(first->getCanSelect());
    EXPECT_GE(first->getColor().r, 0.3f);
    EXPECT_FLOAT_EQ(first->getBox().maximum.x, 10.0f);
    EXPECT_FLOAT_EQ(first->getPositionX(), 360.0f);
    frame();
    EXPECT_EQ(first->getSelectMaterial()->getColor().getColorARGB(), static_cast<uint32_t>(first->getuid()));
    EXPECT_NE(first->getuid(), second->getuid());
}

TEST_F(UtilityNodeTest, PlaneDrawsItsColourWhereItIsPlaced) {
    auto* plane = addNode<Zu3DPlane>("Zu3DPlane", "plane");
    ASSERT_NE(plane, nullptr);
    // A 20-unit square centred at (24, 30).
    plane->setPositionX(24.0f, 30.0f, 0.0f);
    plane->setScaleX(20.0f, 20.0f, 1.0f);
    plane->setColor(250, 30, 30, 255);
    frame();
    EXPECT_TRUE(is(atDesign(picture(), 24, 30), 20, 20, 20)) << "drawn on the window, not in the scene";
    Bytes out = window();
    EXPECT_TRUE(is(atWindow(out, 24, 30), 250, 30, 30));
    EXPECT_TRUE(is(atWindow(out, 15, 21), 250, 30, 30));
    EXPECT_TRUE(is(atWindow(out, 24, 42), 20, 20, 20)) << "above the square";
    EXPECT_TRUE(is(atWindow(out, 36, 30), 20, 20, 20)) << "right of the square";
    plane->setColor(30, 250, 30, 255);
    frame();
    EXPECT_TRUE(is(atWindow(window(), 24, 30), 30, 250, 30));
}

TEST_F(UtilityNodeTest, DesignPlaneShowsTheDesignPictureOverTheWholeWindow) {
    auto* plane = addNode<ZuDesignPlane>("ZuDesignPlane", "design");
    ASSERT_NE(plane, nullptr);
    frame(); // without "skeleton.png": drawn untextured, nothing breaks
    ASSERT_NE(solidTexture(ZuDesignPlane::kPicture, 200, 150, 60), nullptr);
    frame();
    Bytes out = window();
    for (int y = 0; y < kWin; y += 9)
        for (int x = 0; x < kWin; x += 9) ASSERT_TRUE(is(atWindow(out, x, y), 200, 150, 60)) << x << "," << y;
}

TEST_F(UtilityNodeTest, BoundingBoxOutlineStartsFixedAndFollowsTheEvent) {
    auto* outline = addNode<ZuDrawBoundingBoxNode>("ZuDrawBoundingBoxNode", "box");
    ASSERT_NE(outline, nullptr);
    frame();
    const float start[8] = {117, 449, 720, 449, 720, 600, 117, 600};
    for (int i = 0; i < 8; ++i) EXPECT_FLOAT_EQ(outline->getCorners()[i], start[i]);
    Bytes out = picture();
    EXPECT_TRUE(is(atDesign(out, 400, 449), 255, 0, 0)) << "top side of the starting box";
    EXPECT_TRUE(is(atDesign(out, 400, 520), 20, 20, 20)) << "its inside";

    auto* event = new ZuBoundingBoxEvent("u");
    event->left = 100;
    event->top = 1000;
    event->right = 500;
    event->bottom = 200;
    app->getGlobalMgr()->getEventMgr()->pushEvent(event); // takes the reference
    auto* bad = new ZuBoundingBoxEvent("u");
    bad->left = NAN;
    LogCapture log;
    app->getGlobalMgr()->getEventMgr()->pushEvent(bad);
    frame();
    frame();
    EXPECT_EQ(log.count("refused", ZU_LOG_WARN), 1);
    EXPECT_FLOAT_EQ(outline->getCorners()[0], 100.0f);
    EXPECT_FLOAT_EQ(outline->getCorners()[5], 200.0f);
    out = picture();
    EXPECT_TRUE(is(atDesign(out, 100, 600), 255, 0, 0)) << "left side";
    EXPECT_FALSE(is(atDesign(out, 400, 449), 255, 0, 0)) << "the old box is gone";
}
