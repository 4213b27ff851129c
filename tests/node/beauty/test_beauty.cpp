// Skin smoothing, whitening, the skin-tone curve and the face warp. A painter
// node draws a known picture into the scene before the beauty passes; the
// checks read the scene's pixels back and compare them with the picture or
// with values computed here. Faces arrive as FP records, as a host sends them.
#include "basesys/Camera.h"
#include "basesys/ZuAppMainWrap.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/DETECTTYPE.h"
#include "node/beauty/ZuBeautyNode.h"
#include "node/beauty/ZuFaceBeautifyExpand01Node.h"
#include "node/beauty/ZuFaceBeautifyMaterial.h"
#include "node/beauty/ZuFaceBeautifyNode.h"
#include "node/beauty/ZuFaceBeautifyOptimizeMaterial.h"
#include "node/beauty/ZuFaceBeautifyOptimizeMaterialEs30.h"
#include "node/beauty/ZuFaceBuffingWhiteMaterial.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateMgr.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/PicturePainterNode.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <chrono>
#include <cstring>
#include <initializer_list>
#include <cmath>
#include <functional>
#include <string>
#include <thread>

namespace {

using Bytes = std::vector<uint8_t>;

// Scene, camera and design size. One smoothing step is 1/720 of the width,
// so the widest taps reach about 1.3 pixels here.
const int kSide = 96;

const uint8_t kSkin[3] = {200, 150, 120};  // hue 0.0625: inside the fixed skin gate
const uint8_t kBlue[3] = {30, 90, 200};    // hue 0.61: outside it, and far from skin in red

// Brightness noise: the same offset on all channels keeps each pixel's hue.
int noiseAt(int x, int y) {
    unsigned h = static_cast<unsigned>(x) * 73856093u ^ static_cast<unsigned>(y) * 19349663u;
    h ^= h >> 13;
    h *= 0x5bd1e995u;
    h ^= h >> 15;
    return static_cast<int>(h % 25u) - 12;
}

uint8_t clampByte(int v) { return static_cast<uint8_t>(v < 0 ? 0 : (v > 255 ? 255 : v)); }

// Left half skin, right half blue, both with brightness noise.
Bytes skinAndBluePicture(bool noise) {
    Bytes pixels(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const uint8_t* base = x < kSide / 2 ? kSkin : kBlue;
            int n = noise ? noiseAt(x, y) : 0;
            uint8_t* p = &pixels[(y * kSide + x) * 4];
            for (int c = 0; c < 3; ++c) p[c] = clampByte(base[c] + n);
            p[3] = 255;
        }
    return pixels;
}

// Red climbs to the right in steps of 2, so a sideways shift of the picture
// shows as a change of red.
Bytes redRampPicture() {
    Bytes pixels(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            uint8_t* p = &pixels[(y * kSide + x) * 4];
            p[0] = static_cast<uint8_t>(30 + 2 * x);
            p[1] = 100;
            p[2] = static_cast<uint8_t>(50 + y);
            p[3] = 255;
        }
    return pixels;
}

Bytes gPicture;  // what the next painter draws

// Draws gPicture over the whole scene in the background stream, before any
// beauty pass and before the skin-tone read.
class PainterNode : public PicturePainterNode {
public:
    explicit PainterNode(ZuAppMain* app) : PicturePainterNode(app) {}

protected:
    Bytes picture(int* width, int* height) const override {
        *width = *height = kSide;
        return gPicture;
    }
};

// A face in engine pixels (y up) of the 96 x 96 camera.
struct Face {
    float noseX = 48, noseY = 48;
    float eyeL[2] = {36, 63}, eyeR[2] = {60, 63};
    float mouthL[2] = {39, 33}, mouthR[2] = {57, 33};
    float chin[2] = {48, 15};
    float faceL[2] = {21, 48}, faceR[2] = {75, 48};
    float wingL[2] = {42, 45}, wingR[2] = {54, 45};
    float lower[6][2] = {{24, 36}, {72, 36}, {30, 24}, {66, 24}, {27, 30}, {69, 30}};  // contour 4..9
};

// An FP record of one face: the 106 landmarks where the tracker's layout
// reads them, the rest on the nose. Camera pixels, y down.
std::vector<uint8_t> fpRecord(const Face& face) {
    float points[106][2];
    for (auto& p : points) {
        p[0] = face.noseX;
        p[1] = face.noseY;
    }
    auto set = [&points](int index, const float* xy) {
        points[index][0] = xy[0];
        points[index][1] = xy[1];
    };
    const float nose[2] = {face.noseX, face.noseY};
    set(46, nose);
    set(74, face.eyeL);
    set(77, face.eyeR);
    set(84, face.mouthL);
    set(90, face.mouthR);
    set(16, face.chin);
    set(5, face.faceL);
    set(27, face.faceR);
    set(82, face.wingL);
    set(83, face.wingR);
    const int lowerContour[6] = {6, 26, 10, 22, 13, 19};
    for (int i = 0; i < 6; ++i) set(lowerContour[i], face.lower[i]);

    std::vector<uint8_t> bytes;
    auto put = [&bytes](const void* value) {
        const uint8_t* b = static_cast<const uint8_t*>(value);
        bytes.insert(bytes.end(), b, b + 4);
    };
    int32_t count = 1;
    put(&count);
    float angles[3] = {0, 0, 0};
    for (float& a : angles) put(&a);
    int32_t rect[4] = {0, 0, kSide, kSide};
    for (int32_t& r : rect) put(&r);
    for (auto& p : points) {
        float y = static_cast<float>(kSide) - p[1];
        put(&p[0]);
        put(&y);
    }
    return bytes;
}

class BeautyTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {packages.path(), std::string(QZ_SOURCE_DIR) + "/samples/packages/"}; }
    ZuAppMain* makeApp() const override { return new ZuAppMainWrap(); }
    void SetUp() override {
        EngineTest::SetUp();
        if (gPicture.empty()) gPicture = skinAndBluePicture(true);
        config = app->getGlobalMgr()->getConfig();
        config->setDesignSize(kSide, kSide);
        nodes = app->getGlobalMgr()->getNodeMgr();
        host = app->getAppInter();
        nodes->getCreator()->registCreateFunc("PainterNode", zuCreateNodeOfType<PainterNode>);
        scene = makeScene("s");
        ASSERT_NE(scene, nullptr);
        push(new ZuOperateChangeDetectDataType(app, DETECTTYPE_FP));
        frame();
    }
    void TearDown() override {
        gPicture.clear();
        EngineTest::TearDown();
    }
    ZuScene* makeScene(const char* name) {
        Camera* camera = config->getCamera(name);
        camera->width = kSide;
        camera->height = kSide;
        camera->angle = 0;
        host->createLogicSceneFull(name, kSide, kSide, kSide, kSide);
        frame();
        ZuScene* made = app->getGlobalMgr()->getSceneMgr()->getScene(name);
        if (made) made->addChild(nodes->getCreator()->createNode("PainterNode", name, (std::string(name) + "_painter").c_str()));
        return made;
    }
    // The facade with the host's adjusters, as makeApp() made it.
    ZuAppMainWrap* wrap() const { return static_cast<ZuAppMainWrap*>(app); }
    void frame(float delta = 16.0f) {
        app->getGlobalMgr()->update(delta);
        app->directrender("");
    }
    // Operations run in one frame, their events reach the nodes in the next.
    void deliver() {
        frame();
        frame();
    }
    void pushFace(const Face& face, const char* sceneName = "s") {
        std::vector<uint8_t> record = fpRecord(face);
        host->setDetectData(sceneName, record.data(), static_cast<int>(record.size()));
    }
    template <class T>
    T* addNode(const char* type, const char* name, int resUID = 5) {
        T* node = dynamic_cast<T*>(nodes->getCreator()->createNode(type, "s", name));
        if (!node) return nullptr;
        node->setresUID(resUID);
        node->setpersonID(1);
        scene->addChild(node);
        return node;
    }
    Bytes picture() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        Bytes pixels = readPixels(0, 0, kSide, kSide);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    static int at(const Bytes& pixels, int x, int y, int c) { return pixels[(y * kSide + x) * 4 + c]; }
    // Variance of the green channel over a square.
    static double variance(const Bytes& pixels, int x0, int y0, int size) {
        double sum = 0, sumSq = 0;
        int n = 0;
        for (int y = y0; y < y0 + size; ++y)
            for (int x = x0; x < x0 + size; ++x) {
                double v = at(pixels, x, y, 1);
                sum += v;
                sumSq += v * v;
                ++n;
            }
        double mean = sum / n;
        return sumSq / n - mean * mean;
    }
    static int maxDifference(const Bytes& a, const Bytes& b) {
        int worst = 0;
        for (size_t i = 0; i < a.size(); ++i) worst = std::max(worst, std::abs(a[i] - b[i]));
        return worst;
    }
    bool waitFor(const std::function<bool()>& done) {
        for (int i = 0; i < 1000; ++i) {
            frame();
            if (done()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }

    TempDir packages;
    ZuConfig* config = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuAppNative* host = nullptr;
    ZuScene* scene = nullptr;
};

} // namespace

TEST_F(BeautyTest, SkinIsSmoothedOtherColoursOnlyWhitened) {
    Bytes source = picture();
    ASSERT_EQ(source, gPicture);
    config->faceBeautyType = 3;
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "skin");
    ASSERT_NE(node, nullptr);
    node->updateSmooth(1.0f);
    node->updateWhite(0.5f);
    frame();
    Bytes out = picture();

    // Inside the skin gate the noise is blurred away, well inside the half.
    double before = variance(source, 8, 8, 32), after = variance(out, 8, 8, 32);
    EXPECT_LT(after, 0.6 * before) << "skin variance " << before << " -> " << after;

    // Outside it every pixel is its own whitened self: no neighbour mixes in.
    const float white = node->getMaterial()->getWhite();
    EXPECT_FLOAT_EQ(white, 0.6f);
    long brighter = 0;
    for (int y = 4; y < kSide - 4; ++y)
        for (int x = kSide / 2 + 4; x < kSide - 4; ++x) {
            float c[3], mx = 0, mn = 1;
            for (int k = 0; k < 3; ++k) {
                c[k] = at(source, x, y, k) / 255.0f;
                mx = std::max(mx, c[k]);
                mn = std::min(mn, c[k]);
            }
            float alpha = std::pow(0.5f * (mx + mn), 0.8f);
            for (int k = 0; k < 3; ++k) {
                float want = c[k] + (std::pow(c[k], 0.7f) - c[k]) * alpha * white;
                ASSERT_NEAR(at(out, x, y, k), want * 255.0f, 2.0f) << "at " << x << "," << y << " channel " << k;
                brighter += at(out, x, y, k) - at(source, x, y, k);
            }
        }
    EXPECT_GT(brighter, 0);
}

TEST_F(BeautyTest, AHiddenSkinPassDrawsNothing) {
    config->faceBeautyType = 3;
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "skin");
    ASSERT_NE(node, nullptr);
    node->updateSmooth(1.0f);
    node->updateWhite(0.5f);
    node->setVisible(false);
    frame();
    EXPECT_EQ(picture(), gPicture);
    node->setVisible(true);
    frame();
    EXPECT_NE(picture(), gPicture);
}

TEST_F(BeautyTest, SmoothZeroPassesThePictureUnchanged) {
    config->faceBeautyType = 2;
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "skin");
    ASSERT_NE(node, nullptr);
    node->updateSmooth(0.0f);
    node->updateWhite(1.0f);
    float params[4];
    node->getMaterial()->params(params);
    EXPECT_EQ(params[0], 0.0f);
    EXPECT_EQ(params[2], 0.0f);  // whatever white is
    frame();
    EXPECT_EQ(picture(), gPicture);
}

TEST_F(BeautyTest, HostStrengthsMapClampAndReachOnlyTheirNode) {
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "skin", 5);
    ASSERT_NE(node, nullptr);
    ZuFaceBuffingWhiteMaterial* material = node->getMaterial();
    host->updateFaceBeautify("s", 5, 1.0f, 1.0f);
    deliver();
    EXPECT_FLOAT_EQ(material->getSmooth(), 0.8f);
    EXPECT_FLOAT_EQ(material->getWhite(), 1.0f);
    float params[4];
    material->params(params);
    EXPECT_FLOAT_EQ(params[2], 0.3f);

    // Another resource id or another scene name: ignored.
    host->updateFaceBeautify("s", 6, 0.5f, 0.5f);
    host->updateFaceBeautify("elsewhere", 5, 0.5f, 0.5f);
    deliver();
    EXPECT_FLOAT_EQ(material->getSmooth(), 0.8f);

    host->updateFaceBeautify("s", 5, -3.0f, 7.0f);
    deliver();
    EXPECT_FLOAT_EQ(material->getSmooth(), 0.0f);
    EXPECT_FLOAT_EQ(material->getWhite(), 1.0f);
    host->updateFaceBeautifySmooth("s", 5, 0.5f);
    deliver();
    EXPECT_FLOAT_EQ(material->getSmooth(), 0.4f);
    EXPECT_FLOAT_EQ(material->getWhite(), 0.6f);

    // The direct adjuster acts at once, on exactly this class only.
    wrap()->setFaceBeautifyAdjust(0.25f, 0.0f, 9.0f, 9.0f, node->getname().c_str());
    EXPECT_FLOAT_EQ(material->getSmooth(), 0.2f);
    EXPECT_FLOAT_EQ(material->getWhite(), 0.2f);
    auto* soften = addNode<ZuFaceBeautifyExpand01Node>("ZuFaceBeautifyExpand01Node", "soften");
    ASSERT_NE(soften, nullptr);
    soften->updateSmooth(0.3f);
    wrap()->setFaceBeautifyAdjust(1.0f, 1.0f, 0.0f, 0.0f, "soften");
    EXPECT_FLOAT_EQ(soften->getMaterial()->getSmooth(), 0.3f);
    wrap()->setFaceBeautifyAdjust(1.0f, 1.0f, 0.0f, 0.0f, "no such node");

    wrap()->setFaceBeautyType(1);
    EXPECT_EQ(config->faceBeautyType, 1);
}

TEST_F(BeautyTest, EveryQualityLinksAndDraws) {
    config->glversion = 0x30000;
    const char* keys[7] = {"faceBeautify",          "faceBuffingWhiteLow",      "faceBuffingWhite",
                           "faceBuffingWhiteHigh",  "faceBuffingWhite_es30Low", "faceBuffingWhite_es30",
                           "faceBuffingWhite_es30High"};
    pushFace(Face());
    for (int type = 0; type < 7; ++type) {
        config->faceBeautyType = type;
        std::string name = "skin" + std::to_string(type);
        auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", name.c_str());
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->getQualityType(), type);
        EXPECT_STREQ(node->getMaterial()->getProgramKey(), keys[type]);
        EXPECT_NE(node->getMaterial()->getProgram(), 0u) << keys[type];
        node->updateSmooth(1.0f);
        frame();
        Bytes out = picture();
        // Drawn, not blanked: the picture stays close to the source.
        long total = 0;
        for (size_t i = 0; i < out.size(); ++i) total += std::abs(out[i] - gPicture[i]);
        EXPECT_LT(total / static_cast<double>(out.size()), 30.0) << keys[type];
        EXPECT_EQ(at(out, 70, 50, 3), 255) << keys[type];
        node->removeFromParent();
    }
}

TEST_F(BeautyTest, FaceAwareQualitiesFallBackOnEs2) {
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(6, 0x20000), 3);
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(4, 0x20000), 3);
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(2, 0x20000), 2);
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(5, 0x30000), 5);
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(9, 0x30000), 6);
    EXPECT_EQ(ZuFaceBuffingWhiteNode::effectiveType(-1, 0x30000), 0);

    config->glversion = 0x20000;
    config->faceBeautyType = 6;
    LogCapture log;
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "skin");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(log.count("needs ES 3", ZU_LOG_WARN), 1);
    EXPECT_EQ(node->getQualityType(), 3);
    EXPECT_STREQ(node->getMaterial()->getProgramKey(), "faceBuffingWhiteHigh");
    frame();
    frame();
    EXPECT_EQ(log.count("needs ES 3", ZU_LOG_WARN), 1);
    EXPECT_NE(picture(), gPicture);  // smoothing, not a blank or skipped pass
}

TEST(BeautyCurves, SingleCurveDarkensShadowsAndLiftsTheMiddle) {
    float curve[256];
    ZuFaceBeautifyMaterial::get_single_curve(30, 180, 3, 0, curve);
    EXPECT_FLOAT_EQ(curve[0], 0.0f);
    for (int i = 30; i < 256; ++i) ASSERT_FLOAT_EQ(curve[i], static_cast<float>(i)) << i;
    // The shadow parabola ends on the identity at lo and stays below it.
    for (int i = 1; i < 30; ++i) ASSERT_LT(curve[i], static_cast<float>(i)) << i;
    EXPECT_NEAR(curve[15], 4.0 * 3 / 900.0 * 225 + (1 - 4.0 * 3 / 30.0) * 15, 1e-4);

    ZuFaceBeautifyMaterial::get_single_curve(30, 180, 3, 12, curve);
    EXPECT_FLOAT_EQ(curve[30], 30.0f);
    for (int i = 180; i < 256; ++i) ASSERT_FLOAT_EQ(curve[i], static_cast<float>(i)) << i;
    // In between: the inverse of the parabola through (lo, lo) and (hi, hi)
    // with the given gain, rounded; it lifts and never falls.
    double A = 12.0 / (75.0 * 75.0 - 144.0), B = 1.0 - A * 210.0, C = A * 30.0 * 180.0;
    for (int i = 31; i < 180; ++i) {
        double x = curve[i];
        ASSERT_NEAR(A * x * x + B * x + C, i, 1.0) << i;
        ASSERT_GE(curve[i], curve[i - 1]) << i;
        ASSERT_GE(curve[i], static_cast<float>(i)) << i;
    }
    EXPECT_GT(curve[105], 105.0f + 8.0f);

    // Degenerate input: lo above hi or out of range is brought into range.
    ZuFaceBeautifyMaterial::get_single_curve(300, 20, 2, 5, curve);
    EXPECT_FLOAT_EQ(curve[255], 255.0f);
}

TEST(BeautyCurves, SkinMeanShapesTheThreeChannels) {
    uint8_t table[768];
    const int mean[3] = {200, 150, 120};
    // Level 0: no gain anywhere, so above each lo the table is the identity.
    ASSERT_TRUE(ZuFaceBeautifyMaterial::_getCurve(table, mean, 0));
    const int lows[3] = {60, 45, 36};
    for (int c = 0; c < 3; ++c) {
        for (int i = lows[c]; i < 256; ++i) ASSERT_EQ(table[i * 3 + c], i) << "channel " << c << " at " << i;
        EXPECT_LT(table[(lows[c] / 2) * 3 + c], lows[c] / 2) << "channel " << c;
    }

    // Level 5, worked by hand: R 200 gives lo 60, hi 227, dark 6 and a base of
    // 1.1 (the span of 11 caps it) times 5; gain R = trunc(5.5 x 1.4235 + 0.5)
    // = 8, green trunc(5.5 x 1.7176) = 9 capped at trunc(0.7 x 8) = 5, blue
    // trunc(5.5 x 1.894) = 10 capped at 8.
    ASSERT_TRUE(ZuFaceBeautifyMaterial::_getCurve(table, mean, 5));
    const int his[3] = {227, 202, 187}, gains[3] = {8, 5, 8};
    for (int c = 0; c < 3; ++c) {
        float curve[256];
        ZuFaceBeautifyMaterial::get_single_curve(lows[c], his[c], 6, gains[c], curve);
        for (int i = 0; i < 256; ++i)
            ASSERT_EQ(table[i * 3 + c], static_cast<int>(curve[i])) << "channel " << c << " at " << i;
    }

    // A mean without red is refused and leaves the table as it was.
    uint8_t before[768];
    std::memcpy(before, table, sizeof table);
    const int dark[3] = {0, 40, 40};
    EXPECT_FALSE(ZuFaceBeautifyMaterial::_getCurve(table, dark, 5));
    EXPECT_EQ(std::memcmp(before, table, sizeof table), 0);
}

TEST(BeautyCurves, PickupPointTakesTheThirds) {
    float out[4];
    ZuFaceBeautifyNode::pickupPoint(0, 0, 30, 60, out);
    EXPECT_FLOAT_EQ(out[0], 10);
    EXPECT_FLOAT_EQ(out[1], 20);
    EXPECT_FLOAT_EQ(out[2], 20);
    EXPECT_FLOAT_EQ(out[3], 40);
    // y always climbs from the lower end, whichever point it belongs to.
    ZuFaceBeautifyNode::pickupPoint(30, 60, 0, 0, out);
    EXPECT_FLOAT_EQ(out[0], 20);
    EXPECT_FLOAT_EQ(out[1], 20);
    EXPECT_FLOAT_EQ(out[2], 10);
    EXPECT_FLOAT_EQ(out[3], 40);
}

TEST_F(BeautyTest, SkinToneIsSampledOncePerPeriodAndShapesTheCurve) {
    gPicture = skinAndBluePicture(false);
    ZuScene* flat = makeScene("flat");
    ASSERT_NE(flat, nullptr);
    scene = flat;
    auto* node = dynamic_cast<ZuFaceBeautifyNode*>(nodes->getCreator()->createNode("ZuFaceBeautifyNode", "flat", "tone"));
    ASSERT_NE(node, nullptr);
    flat->addChild(node);
    node->updateSmooth(1.0f);

    // No face: nothing sampled, nothing drawn.
    frame();
    EXPECT_FALSE(node->hasSampled());
    EXPECT_EQ(picture(), gPicture);

    // All landmarks on the skin half: the first frame reads, and draws with
    // the curve it has (identity still).
    Face face;
    face.noseX = 20;
    face.noseY = 50;
    face.chin[0] = 20;
    face.chin[1] = 50;
    pushFace(face, "flat");
    frame();
    EXPECT_TRUE(node->hasSampled());
    const float* points = node->getSamplePoints();
    ASSERT_NE(points, nullptr);
    for (int i = 0; i < 24; i += 2) {
        EXPECT_NEAR(points[i], 20.0f, 0.01f);
        EXPECT_NEAR(points[i + 1], 50.0f, 0.01f);
    }
    const uint8_t* table = node->getMaterial()->getTable();
    for (int i = 0; i < 256; ++i) ASSERT_EQ(table[i * 3], i);
    Bytes softened = picture();
    EXPECT_NE(softened, gPicture);

    // Within the period: no new read, the curve stays.
    pushFace(face, "flat");
    frame(500.0f);
    for (int i = 0; i < 256; ++i) ASSERT_EQ(table[i * 3], i);

    // After it the previous read's mean, exactly the skin colour, builds the
    // curves at level 1 (curveAdjust).
    pushFace(face, "flat");
    frame(600.0f);
    uint8_t expected[768];
    const int mean[3] = {kSkin[0], kSkin[1], kSkin[2]};
    ASSERT_TRUE(ZuFaceBeautifyMaterial::_getCurve(expected, mean, 1));
    EXPECT_EQ(std::memcmp(expected, table, sizeof expected), 0);
    // The table reaches the picture: mid-tone skin channels are lifted.
    pushFace(face, "flat");
    frame();
    Bytes curved = picture();
    int lifted = 0;
    for (int y = 10; y < 90; y += 9)
        for (int x = 3; x < 93; x += 7)
            for (int c = 0; c < 3; ++c) {
                int before = at(softened, x, y, c);
                ASSERT_NEAR(at(curved, x, y, c), expected[before * 3 + c], 1) << x << "," << y << " channel " << c;
                lifted += expected[before * 3 + c] > before;
            }
    EXPECT_GT(lifted, 0);
}

TEST_F(BeautyTest, SkinLimitedSoftenDrawsOnlyWithAFace) {
    // On ES 2 the whole picture is softened instead, with a warning.
    {
        LogCapture log;
        auto* plain = addNode<ZuFaceBeautifyExpand01Node>("ZuFaceBeautifyExpand01Node", "plain");
        ASSERT_NE(plain, nullptr);
        EXPECT_EQ(log.count("needs ES 3", ZU_LOG_WARN), 1);
        EXPECT_EQ(dynamic_cast<ZuFaceBeautifyOptimizeMaterialEs30*>(plain->getMaterial()), nullptr);
        plain->removeFromParent();
    }
    config->glversion = 0x30000;
    auto* node = addNode<ZuFaceBeautifyExpand01Node>("ZuFaceBeautifyExpand01Node", "s_soften_0_5", 5);
    ASSERT_NE(node, nullptr);
    node->updateSmooth(1.0f);
    frame();
    EXPECT_EQ(picture(), gPicture);

    // A face on the skin half: its cheeks give the skin's mean colour.
    Face face;
    for (float* p : {&face.noseX, &face.eyeL[0], &face.eyeR[0], &face.mouthL[0], &face.mouthR[0], &face.chin[0],
                     &face.faceL[0], &face.faceR[0], &face.wingL[0], &face.wingR[0]})
        *p *= 0.45f;
    for (auto& p : face.lower) p[0] *= 0.45f;
    pushFace(face);
    frame();
    Bytes out = picture();
    EXPECT_NE(out, gPicture);
    // The blue half is far from the sampled skin in red: passed unchanged.
    for (int y = 4; y < kSide - 4; y += 7)
        for (int x = kSide / 2 + 4; x < kSide - 4; x += 5)
            for (int c = 0; c < 4; ++c) ASSERT_EQ(at(out, x, y, c), at(gPicture, x, y, c)) << x << "," << y;

    // Its event names a prefix of the node's name.
    host->updateFaceBeautifySmooth("s_soft", 5, 0.25f);
    deliver();
    EXPECT_FLOAT_EQ(node->getMaterial()->getSmooth(), 0.25f);
    host->updateFaceBeautifySmooth("t_soft", 5, 0.75f);
    host->updateFaceBeautifySmooth("s_soft", 4, 0.75f);
    deliver();
    EXPECT_FLOAT_EQ(node->getMaterial()->getSmooth(), 0.25f);
}

TEST_F(BeautyTest, SlimSettersKeepAwayFromOneAndEventsReachOnlyTheirNode) {
    auto* node = addNode<ZuBeautyNode>("ZuBeautyNode", "s_warp_0_7", 7);
    ASSERT_NE(node, nullptr);
    node->setFaceSlim(1.0f);
    EXPECT_FLOAT_EQ(node->getFaceSlim(), 1.001f);
    node->setFaceSlim(0.9995f);
    EXPECT_FLOAT_EQ(node->getFaceSlim(), 1.001f);
    node->setFaceSlim(0.99f);
    EXPECT_FLOAT_EQ(node->getFaceSlim(), 0.99f);
    node->setChinSlim(1.0005f);
    EXPECT_FLOAT_EQ(node->getChinSlim(), 1.001f);

    host->updateIntensity("s_warp", 7, 0.5f);
    deliver();
    EXPECT_FLOAT_EQ(node->getEyeLargeLeft(), 0.5f);
    EXPECT_FLOAT_EQ(node->getEyeLargeRight(), 0.5f);
    host->updateSlimStrengthValue("s_warp", 7, 0.9f, 0.8f, 0.7f, 0.6f);
    deliver();
    EXPECT_FLOAT_EQ(node->getFaceSlim(), 0.9f);
    EXPECT_FLOAT_EQ(node->getChinSlim(), 0.8f);
    EXPECT_FLOAT_EQ(node->getChinUpSlim(), 0.7f);
    EXPECT_FLOAT_EQ(node->getChinMiddleSlim(), 0.6f);

    // Wrong resource id, or a name that doesn't start the node's: ignored.
    host->updateIntensity("s_warp", 8, 0.1f);
    host->updateIntensity("x_warp", 7, 0.1f);
    host->updateSlimStrengthValue("s_warpy", 7, 0.1f, 0.1f, 0.1f, 0.1f);
    deliver();
    EXPECT_FLOAT_EQ(node->getEyeLargeLeft(), 0.5f);
    EXPECT_FLOAT_EQ(node->getFaceSlim(), 0.9f);

    // The node goes idle on the event that finds everything at 0, and wakes
    // on the next one.
    node->setEyeLarge(0.0f, 0.3f);
    node->setFaceSlim(0.0f);
    node->setChinSlim(0.0f);
    node->setChinUpSlim(0.0f);
    node->setChinMiddleSlim(0.0f);
    EXPECT_TRUE(node->isActive());
    host->updateIntensity("s_warp", 7, 0.0f);
    deliver();
    EXPECT_FALSE(node->isActive());
    pushFace(Face());
    frame();
    EXPECT_EQ(picture(), gPicture);
    host->updateSlimStrengthValue("s_warp", 7, 1.0f, 1.0f, 1.0f, 1.0f);
    deliver();
    EXPECT_FALSE(node->isActive());  // everything was still 0 when it came
    host->updateIntensity("s_warp", 7, 0.0f);
    deliver();
    EXPECT_TRUE(node->isActive());
}

TEST_F(BeautyTest, SlimmingPullsThePictureTowardTheNose) {
    gPicture = redRampPicture();
    ZuScene* ramp = makeScene("ramp");
    ASSERT_NE(ramp, nullptr);
    scene = ramp;
    auto* node = dynamic_cast<ZuBeautyNode*>(nodes->getCreator()->createNode("ZuBeautyNode", "ramp", "warp"));
    ASSERT_NE(node, nullptr);
    node->setpersonID(1);
    ramp->addChild(node);
    Bytes source = gPicture;

    // No face: no pass at all.
    frame();
    EXPECT_EQ(picture(), source);

    // Factors of 1 (stored as 1.001) and the tiny default eye strength: the
    // warp is there but moves nothing visibly.
    Face face;
    node->setFaceSlim(1.0f);
    node->setChinSlim(1.0f);
    pushFace(face, "ramp");
    frame();
    EXPECT_LE(maxDifference(picture(), source), 2);

    // Cheeks at half: what lay outside the left cheek now shows on it (less
    // red), and on the right cheek what lay outside it (more red).
    node->setFaceSlim(0.5f);
    pushFace(face, "ramp");
    frame();
    Bytes slim = picture();
    int left = static_cast<int>(face.faceL[0]), right = static_cast<int>(face.faceR[0]), row = 48;
    EXPECT_LT(at(slim, left, row, 0), at(source, left, row, 0) - 10);
    EXPECT_GT(at(slim, right, row, 0), at(source, right, row, 0) + 10);
    // Rows and far corners are left alone.
    EXPECT_EQ(at(slim, left, row, 2), at(source, left, row, 2));
    EXPECT_EQ(at(slim, 2, 2, 0), at(source, 2, 2, 0));
    EXPECT_EQ(at(slim, 93, 93, 0), at(source, 93, 93, 0));

    // A nose within 0.03 of the edge means no usable face: unchanged.
    face.noseX = 2.0f;
    pushFace(face, "ramp");
    frame();
    EXPECT_EQ(picture(), source);
}

TEST_F(BeautyTest, PackageItemsCreateTheBeautyNodes) {
    host->loadEffect("s", "beauty", 31, 0);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("s_skin_0_31") != nullptr; }));
    frame();
    auto* skin = dynamic_cast<ZuFaceBuffingWhiteNode*>(nodes->getNode("s_skin_0_31"));
    ASSERT_NE(skin, nullptr);
    EXPECT_EQ(skin->getresUID(), 31);
    EXPECT_EQ(skin->getpersonID(), 1);
    EXPECT_FLOAT_EQ(skin->getMaterial()->getSmooth(), 0.8f * 0.7f);
    EXPECT_FLOAT_EQ(skin->getMaterial()->getWhite(), 0.6f);  // "adjustColor" is not applied
    auto* warp = dynamic_cast<ZuBeautyNode*>(nodes->getNode("s_effectFilter01_0_31"));
    ASSERT_NE(warp, nullptr);
    EXPECT_FLOAT_EQ(warp->getEyeLargeLeft(), 0.85f);
    EXPECT_FLOAT_EQ(warp->getFaceSlim(), 0.92f);
    EXPECT_FLOAT_EQ(warp->getChinUpSlim(), 1.001f);

    // Whole numbers do not count; unknown kinds build nothing.
    packages.write("ints/config.json", R"({"param": [
        {"type": "EffectFilter", "id": "w", "subType": "EFFECT_BEAUTY", "eyeLargeLeft": 1, "faceSlim": 0.5},
        {"type": "EffectFilter", "id": "shake", "subType": "EFFECT_SHAKE"},
        {"type": "EffectFilter", "id": "odd", "subType": "EFFECT_NONE"}]})");
    host->loadEffect("s", "ints", 32, 1);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("s_w_0_32") != nullptr; }));
    auto* ints = dynamic_cast<ZuBeautyNode*>(nodes->getNode("s_w_0_32"));
    ASSERT_NE(ints, nullptr);
    EXPECT_FLOAT_EQ(ints->getEyeLargeLeft(), 0.00001f);
    EXPECT_FLOAT_EQ(ints->getFaceSlim(), 0.5f);
    EXPECT_NE(nodes->getNode("s_shake_0_32"), nullptr);
    EXPECT_EQ(nodes->getNode("s_odd_0_32"), nullptr);
}

TEST_F(BeautyTest, TheSharedWarpIsChangedNotStacked) {
    ZuScene* ol2 = makeScene("ol2");
    ASSERT_NE(ol2, nullptr);
    packages.write("first/config.json", R"({"param": [
        {"type": "EffectFilter", "id": "effectFilter01", "subType": "EFFECT_BEAUTY", "faceSlim": 0.8}]})");
    packages.write("second/config.json", R"({"param": [
        {"type": "EffectFilter", "id": "effectFilter01", "subType": "EFFECT_BEAUTY", "faceSlim": 0.6}]})");
    host->loadEffect("ol2", "first", 108, 0);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("ol2_effectFilter01_0_108") != nullptr; }));
    auto* shared = dynamic_cast<ZuBeautyNode*>(nodes->getNode("ol2_effectFilter01_0_108"));
    ASSERT_NE(shared, nullptr);
    EXPECT_FLOAT_EQ(shared->getFaceSlim(), 0.8f);
    host->loadEffect("ol2", "second", 109, 1);
    ASSERT_TRUE(waitFor([&] { return shared->getFaceSlim() < 0.7f; }));
    EXPECT_FLOAT_EQ(shared->getFaceSlim(), 0.6f);
    EXPECT_EQ(nodes->getNode("ol2_effectFilter01_0_109"), nullptr);
}
