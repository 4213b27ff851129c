// Output nodes: the finished scene handed to the host as RGBA or YUV bytes,
// as a host texture, as a scaled texture and as a thumbnail. A test node
// paints four coloured quadrants; every check reads real pixels back.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"
#include "node/output/ZuDataOutputScaleTexNode.h"
#include "node/output/ZuDataOutputTexNode.h"
#include "node/output/ZuDataTransNode.h"
#include "node/output/ZuDataTransNodeOutData.h"
#include "node/output/ZuIconNode.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateCreateOutSteam.h"
#include "operate/ZuOperateCreateOutSteamDataSwap.h"
#include "operate/ZuOperateCreateOutputTexNode.h"
#include "operate/ZuOperateCreateOutputTexScaleNode.h"
#include "operate/ZuOperateMgr.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterialColorSelect2d.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"

#include <cmath>
#include <cstdlib>

namespace {

using Bytes = std::vector<uint8_t>;

const int kW = 32;  // camera and scene size: whole chroma rows, quadrants far from each other
const int kH = 48;

// Top-left red, top-right green, bottom-left blue, bottom-right white (GL y up).
class QuadrantsNode : public ZuNode {
public:
    explicit QuadrantsNode(ZuAppMain* app) : ZuNode(app) {}
    void zuinit() override {
        const unsigned colours[4] = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff};
        for (int i = 0; i < 4; ++i) {
            materials[i] = new ZuMaterialColorSelect2d(app);
            materials[i]->init();
            materials[i]->setDepthTest(false);
            materials[i]->setColor(colours[i]);
            objects[i] = new ZuRenderObject(app);
        }
    }
    void zudestroy() override {
        for (int i = 0; i < 4; ++i) {
            qzSafeRelease(materials[i]);
            qzSafeRelease(objects[i]);
        }
        ZuNode::zudestroy();
    }
    void update(float delta) override {
        ZuNode::update(delta);
        ZuRenderData* data = app->getGlobalMgr()->getRenderMgr()->getRenderData();
        ZuRenderMesh* meshes[4] = {data->meshTopLeft, data->meshTopRight, data->meshBottomLeft, data->meshBottomRight};
        for (int i = 0; i < 4; ++i) {
            objects[i]->setMesh(meshes[i]);
            objects[i]->setMaterial(materials[i]);
        }
    }
    void render() override {
        ZuScene* scene = app->getGlobalParam()->activeScene;
        for (ZuRenderObject* object : objects) object->pushCmd(scene ? scene->getRenderScene() : nullptr, RS_OVERLAY, "q");
    }

private:
    ZuMaterialColorSelect2d* materials[4] = {};
    ZuRenderObject* objects[4] = {};
};

class OutputNodeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        // Synchronous read-back: a frame's bytes arrive in that frame.
        app->getGlobalMgr()->getConfig()->glversion = 0x20000;
        nodes = app->getGlobalMgr()->getNodeMgr();
        nodes->getCreator()->registCreateFunc("QuadrantsNode", zuCreateNodeOfType<QuadrantsNode>);
        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera("out");
        camera->width = kW;
        camera->height = kH;
        camera->angle = 0;
        push(new ZuOperateCreateLogicScene(app, "out", 64, 64, kW, kH, SCALE_MODE_FULL));
        frame();
        scene = app->getGlobalMgr()->getSceneMgr()->getScene("out");
        ASSERT_NE(scene, nullptr);
        ZuNode* painter = nodes->getCreator()->createNode("QuadrantsNode", "out", "quadrants");
        ASSERT_NE(painter, nullptr);
        scene->addChild(painter);
    }
    static Bytes readFbo(ZuFboObject* fbo) {
        glBindFramebuffer(GL_FRAMEBUFFER, fbo->getFboID());
        Bytes pixels = readPixels(0, 0, fbo->getFrameWidth(), fbo->getFrameHeight());
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    // The RGBA bytes of a GL texture, bottom row first.
    static Bytes readTexture(unsigned tex, int w, int h) {
        GLuint fb = 0;
        glGenFramebuffers(1, &fb);
        glBindFramebuffer(GL_FRAMEBUFFER, fb);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, tex, 0);
        Bytes pixels = readPixels(0, 0, w, h);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glDeleteFramebuffers(1, &fb);
        return pixels;
    }
    static Bytes swapBytes(ZuDataSwap* swap) { return Bytes(swap->getData(), swap->getData() + swap->getSize()); }
    ZuDataTransNode* transNode(const char* name) { return dynamic_cast<ZuDataTransNode*>(nodes->getNode(name)); }

    // The scene picture mirrored left-right and/or turned upside down.
    static Bytes transformed(const Bytes& src, int w, int h, bool mirrorX, bool flipY) {
        Bytes out(src.size());
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                int sx = mirrorX ? w - 1 - x : x;
                int sy = flipY ? h - 1 - y : y;
                std::memcpy(&out[(y * w + x) * 4], &src[(sy * w + sx) * 4], 4);
            }
        return out;
    }
    // The colour at (x, y) of a w x h picture of the four quadrants.
    static Bytes quadrant(int x, int y, int w, int h) {
        bool right = x >= w / 2, top = y >= h / 2;
        if (top) return right ? Bytes{0, 255, 0, 255} : Bytes{255, 0, 0, 255};
        return right ? Bytes{255, 255, 255, 255} : Bytes{0, 0, 255, 255};
    }
    static void expectQuadrants(const Bytes& pixels, int w, int h, const char* what) {
        // Centres of the quadrants: clear of any blending at their edges.
        for (int qy : {h / 4, 3 * h / 4})
            for (int qx : {w / 4, 3 * w / 4}) {
                Bytes got(pixels.begin() + (qy * w + qx) * 4, pixels.begin() + (qy * w + qx) * 4 + 4);
                EXPECT_EQ(got, quadrant(qx, qy, w, h)) << what << " at " << qx << "," << qy;
            }
    }

    ZuNodeMgr* nodes = nullptr;
    ZuScene* scene = nullptr;
};

} // namespace

TEST_F(OutputNodeTest, RgbaOutputKeepsThePictureMirrorsAndTurnsOnRequest) {
    push(new ZuOperateCreateOutSteam(app, "out", OST_RGBA, true, false));
    frame();
    ZuDataTransNode* node = transNode("out_dataout");
    ASSERT_NE(node, nullptr);
    ASSERT_NE(node->getFbo(), nullptr);
    EXPECT_EQ(node->getFbo()->getFrameWidth(), kW);
    EXPECT_EQ(node->getFbo()->getFrameHeight(), kH);
    ZuDataSwap* swap = node->getOutDataSwap();
    ASSERT_EQ(swap->getSize(), kW * kH * 4);
    ASSERT_TRUE(swap->isWrite());
    Bytes scenePicture = readFbo(scene->getFbo());
    expectQuadrants(scenePicture, kW, kH, "scene");
    // Mirror on (the default) leaves the picture as the scene shows it.
    EXPECT_EQ(swapBytes(swap), scenePicture);

    node->setOutMirror(false);
    frame();
    EXPECT_EQ(swapBytes(swap), transformed(scenePicture, kW, kH, true, false));
    node->setOutInvert(true);
    frame();
    EXPECT_EQ(swapBytes(swap), transformed(scenePicture, kW, kH, true, true));

    // Format and size stay those of the first call.
    node->setOutFormate(OST_NV21, 8, 8);
    EXPECT_EQ(node->getFormat(), OST_RGBA);
    EXPECT_EQ(node->getOutWidth(), kW);
}

TEST_F(OutputNodeTest, BgraOutputExchangesRedAndBlue) {
    push(new ZuOperateCreateOutSteamDataSwap(app, "out", "bgra", OST_BGRA, true, false));
    frame();
    ZuDataTransNode* node = transNode("bgra");
    ASSERT_NE(node, nullptr);
    ZuDataSwap* swap = node->getOutDataSwap();
    ASSERT_EQ(swap->getSize(), kW * kH * 4);
    Bytes expected = readFbo(scene->getFbo());
    for (size_t i = 0; i < expected.size(); i += 4) std::swap(expected[i], expected[i + 2]);
    EXPECT_EQ(swapBytes(swap), expected);
}

// NV21: the Y plane, then V U pairs of every second pixel of every second row,
// from the video-range formula. The shader samples up to two pixels off its
// nominal source, so only bytes whose neighbourhood is one colour are checked.
TEST_F(OutputNodeTest, Nv21OutputMatchesTheVideoRangeFormula) {
    push(new ZuOperateCreateOutSteamDataSwap(app, "out", "nv21", OST_NV21, true, false));
    frame();
    ZuDataTransNode* node = transNode("nv21");
    ASSERT_NE(node, nullptr);
    ZuDataSwap* swap = node->getOutDataSwap();
    ASSERT_EQ(swap->getSize(), kW * kH * 3 / 2);
    ASSERT_TRUE(swap->isWrite());
    Bytes picture = readFbo(scene->getFbo());
    Bytes out = swapBytes(swap);

    auto rgbAt = [&](int x, int y, int c) { return picture[(y * kW + x) * 4 + c] / 255.0; };
    auto uniformAround = [&](int x, int y) {
        for (int dy = -3; dy <= 3; ++dy)
            for (int dx = -3; dx <= 3; ++dx) {
                int sx = std::min(std::max(x + dx, 0), kW - 1), sy = std::min(std::max(y + dy, 0), kH - 1);
                if (std::memcmp(&picture[(sy * kW + sx) * 4], &picture[(y * kW + x) * 4], 4) != 0) return false;
            }
        return true;
    };
    auto toByte = [](double v) { return static_cast<int>(std::lround(std::min(std::max(v, 0.0), 1.0) * 255.0)); };
    auto luma = [&](int x, int y) {
        return toByte(0.256816 * rgbAt(x, y, 0) + 0.504154 * rgbAt(x, y, 1) + 0.0979137 * rgbAt(x, y, 2) + 0.0625);
    };
    auto chromaU = [&](int x, int y) {
        return toByte(-0.148246 * rgbAt(x, y, 0) - 0.29102 * rgbAt(x, y, 1) + 0.439266 * rgbAt(x, y, 2) + 0.5);
    };
    auto chromaV = [&](int x, int y) {
        return toByte(0.439271 * rgbAt(x, y, 0) - 0.367833 * rgbAt(x, y, 1) - 0.071438 * rgbAt(x, y, 2) + 0.5);
    };

    int checked = 0;
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x) {
            if (!uniformAround(x, y)) continue;
            ASSERT_NEAR(out[y * kW + x], luma(x, y), 2) << "Y at " << x << "," << y;
            ++checked;
        }
    const int chroma = kW * kH;
    for (int cy = 0; cy < kH / 2; ++cy)
        for (int cx = 0; cx < kW / 2; ++cx) {
            int x = cx * 2, y = cy * 2;
            if (!uniformAround(x, y)) continue;
            int at = chroma + (cy * (kW / 2) + cx) * 2;
            ASSERT_NEAR(out[at], chromaV(x, y), 2) << "V at " << x << "," << y;
            ASSERT_NEAR(out[at + 1], chromaU(x, y), 2) << "U at " << x << "," << y;
            ++checked;
        }
    // Most of the frame lies inside a quadrant.
    EXPECT_GT(checked, (kW * kH + kW * kH / 4) / 2);
}

TEST_F(OutputNodeTest, InterceptStopsWritesAndKeepsTheLastFrame) {
    push(new ZuOperateCreateOutSteamDataSwap(app, "out", "held", OST_RGBA, true, false, 0, 0, true));
    frame();
    ZuDataTransNode* node = transNode("held");
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->getintercept());
    ZuDataSwap* swap = node->getOutDataSwap();
    EXPECT_FALSE(swap->isWrite());

    node->setintercept(false);
    frame();
    ASSERT_TRUE(swap->isWrite());
    Bytes last = swapBytes(swap);
    EXPECT_EQ(last, readFbo(scene->getFbo()));

    // Whatever the buffer holds now must survive intercepted frames.
    std::fill(swap->getData(), swap->getData() + swap->getSize(), 7);
    node->setintercept(true);
    frame();
    EXPECT_EQ(swapBytes(swap), Bytes(last.size(), 7));
}

TEST_F(OutputNodeTest, OwnSizeScalesTheFrameIntoASmallerBuffer) {
    push(new ZuOperateCreateOutSteamDataSwap(app, "out", "small", OST_RGBA, true, false, kW / 2, kH / 2, false));
    frame();
    ZuDataTransNode* node = transNode("small");
    ASSERT_NE(node, nullptr);
    ASSERT_EQ(node->getOutDataSwap()->getSize(), kW / 2 * kH / 2 * 4);
    expectQuadrants(swapBytes(node->getOutDataSwap()), kW / 2, kH / 2, "small");
}

TEST_F(OutputNodeTest, HostTextureReceivesTheSceneAndARenamedTextureRebuildsTheTarget) {
    GLuint tex[2] = {0, 0};
    glGenTextures(2, tex);
    for (GLuint t : tex) {
        glBindTexture(GL_TEXTURE_2D, t);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kW, kH, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    }
    glBindTexture(GL_TEXTURE_2D, 0);

    push(new ZuOperateCreateOutputTexNode(app, "out", "tex", tex[0], PF_RGBA, true, false));
    frame();
    ZuDataOutputTexNode* node = dynamic_cast<ZuDataOutputTexNode*>(nodes->getNode("tex"));
    ASSERT_NE(node, nullptr);
    Bytes scenePicture = readFbo(scene->getFbo());
    EXPECT_EQ(readTexture(tex[0], kW, kH), scenePicture);

    ZuFboObject* first = node->getFbo();
    node->setOutputTexture(tex[0], kW, kH);
    EXPECT_EQ(node->getFbo(), first);  // the same name keeps its target
    node->setOutputTexture(tex[1], kW, kH);
    EXPECT_NE(node->getFbo(), nullptr);
    EXPECT_EQ(node->getTexId(), tex[1]);

    // A BGRA host texture gets red and blue exchanged, and a mirror.
    node->setOutTextureType(PF_BGRA);
    node->setOutMirror(false);
    frame();
    Bytes expected = transformed(scenePicture, kW, kH, true, false);
    for (size_t i = 0; i < expected.size(); i += 4) std::swap(expected[i], expected[i + 2]);
    EXPECT_EQ(readTexture(tex[1], kW, kH), expected);
    glDeleteTextures(2, tex);
}

TEST_F(OutputNodeTest, ScaledTextureAndIconHoldASmallerCopy) {
    push(new ZuOperateCreateOutputTexScaleNode(app, "out", "scaled", PF_RGBA, true, false, kW / 2, kH / 2));
    ZuIconNode* icon = dynamic_cast<ZuIconNode*>(nodes->getCreator()->createNode("ZuIconNode", "out", "icon"));
    ASSERT_NE(icon, nullptr);
    scene->addChild(icon);
    frame();  // an icon without a size records nothing
    EXPECT_EQ(icon->getFbo(), nullptr);
    icon->setIconSize(16, 16);
    frame();

    ZuDataOutputScaleTexNode* scaled = dynamic_cast<ZuDataOutputScaleTexNode*>(nodes->getNode("scaled"));
    ASSERT_NE(scaled, nullptr);
    ASSERT_NE(scaled->getFbo(), nullptr);
    expectQuadrants(readFbo(scaled->getFbo()), kW / 2, kH / 2, "scaled");
    ASSERT_NE(icon->getFbo(), nullptr);
    expectQuadrants(readFbo(icon->getFbo()), 16, 16, "icon");

    // Bad sizes are refused without a target.
    ZuIconNode* bad = dynamic_cast<ZuIconNode*>(nodes->getCreator()->createNode("ZuIconNode", "out", "bad"));
    bad->setIconSize(0, 5);
    EXPECT_EQ(bad->getFbo(), nullptr);
    scene->addChild(bad);
    frame();
}

TEST_F(OutputNodeTest, MissingSceneCreatesNothing) {
    push(new ZuOperateCreateOutSteam(app, "nowhere", OST_RGBA, true, false));
    push(new ZuOperateCreateOutputTexNode(app, "nowhere", "t", 1, PF_RGBA, true, false));
    frame();
    EXPECT_EQ(nodes->getNode("nowhere_dataout"), nullptr);
    EXPECT_EQ(nodes->getNode("t"), nullptr);
}

TEST_F(OutputNodeTest, RingOutputFillsOneSlotPerFrame) {
    // The engine registers no such node; a test may.
    nodes->getCreator()->registCreateFunc("ZuDataTransNodeOutData", zuCreateNodeOfType<ZuDataTransNodeOutData>);
    ZuDataTransNodeOutData* node = dynamic_cast<ZuDataTransNodeOutData*>(
        nodes->getCreator()->createNode("ZuDataTransNodeOutData", "out", "ring"));
    ASSERT_NE(node, nullptr);
    node->setOutFormate(OST_RGBA, kW, kH);
    ZuDataSwapCache* ring = new ZuDataSwapCache();
    ring->init(3);
    node->setDataCache(ring);
    scene->addChild(node);
    frame();
    frame();
    Bytes scenePicture = readFbo(scene->getFbo());
    for (int i = 0; i < 2; ++i) {
        ZuDataSwap* slot = ring->getReadData();
        ASSERT_NE(slot, nullptr);
        ASSERT_EQ(slot->getSize(), kW * kH * 4);
        EXPECT_EQ(swapBytes(slot), scenePicture) << "slot " << i;
        ring->incRead();
    }
    ring->destroy();
    ring->release();
}
