// The style passes: sketch lines and tones against a reference computed
// here from the same picture, the channel shake's displacement over time and
// its rest at the end of each period, the background keying, and the
// pencil and screen passes. A painter draws a known picture first; every
// check reads the scene's pixels back.
#include "basesys/Camera.h"
#include "basesys/ZuConfig.h"
#include "node/filter/ZuAlphaMattingNode.h"
#include "node/filter/ZuEffectShakeNode.h"
#include "node/filter/ZuFilterOutter.h"
#include "node/filter/ZuFilterShakeMaterial.h"
#include "node/filter/ZuFilterSketchMaterial.h"
#include "node/filter/ZuMaterialEffectShake.h"
#include "node/filter/ZuMaterialScreenFour.h"
#include "node/filter/ZuMaterialScreenSevenColor.h"
#include "node/filter/ZuPencilDrawingNode.h"
#include "node/filter/ZuShakeFilterNode.h"
#include "node/filter/ZuSketchFilterNode.h"
#include "node/filter/FilterFixture.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "data/DETECTTYPE.h"
#include "render/texture/ZuTexMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "support/LogCapture.h"

#include <cmath>
#include <map>

namespace {

using namespace filtertest;

// Draws whatever picture the test put in next() before making it.
class StylePainterNode : public PicturePainterNode {
public:
    explicit StylePainterNode(ZuAppMain* app) : PicturePainterNode(app), pixels(next()) {}
    static Bytes& next() {
        static Bytes chosen;
        return chosen;
    }

protected:
    Bytes picture(int* width, int* height) const override {
        *width = *height = kSide;
        return pixels;
    }

private:
    Bytes pixels;
};

// Rows bottom first, as the read-back gives them.
Bytes makePicture(const std::function<void(int x, int y, uint8_t* rgba)>& paint) {
    Bytes pixels(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            uint8_t* p = &pixels[(y * kSide + x) * 4];
            paint(x, y, p);
            p[3] = 255;
        }
    return pixels;
}

class StyleFilterTest : public FilterFixture<GLTest> {
protected:
    std::vector<std::string> resourceRoots() const override {
        return {packages.path(), std::string(QZ_SOURCE_DIR) + "/samples/packages/", sourceAssets()};
    }
    void SetUp() override {
        FilterFixture<GLTest>::SetUp();
        nodes->getCreator()->registCreateFunc("StylePainterNode", zuCreateNodeOfType<StylePainterNode>);
        // One sample step is one pixel of this scene.
        for (const char* name : {ZuConfig::kDefaultCamera, "s"}) {
            Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(name);
            camera->width = kSide;
            camera->height = kSide;
            camera->angle = 0;
        }
    }
    // Paints the picture over the fixture's own and makes it the base.
    void paint(const Bytes& pixels) {
        StylePainterNode::next() = pixels;
        ZuNode* painter = nodes->getCreator()->createNode("StylePainterNode", "s", "stylePainter");
        ASSERT_NE(painter, nullptr);
        scene->addChild(painter);
        frame();
        base = picture();
        ASSERT_EQ(base, pixels) << "the painter lays the picture down as given";
    }
    // One FP face in the middle, pushed as a host does: person 1 exists.
    void showFace() {
        push(new ZuOperateChangeDetectDataType(app, DETECTTYPE_FP));
        frame();
        std::vector<uint8_t> record;
        auto put = [&record](const void* v) {
            const uint8_t* b = static_cast<const uint8_t*>(v);
            record.insert(record.end(), b, b + 4);
        };
        int32_t count = 1;
        put(&count);
        const float angles[3] = {0, 0, 0};
        for (const float& a : angles) put(&a);
        const int32_t rect[4] = {8, 8, 24, 24};
        for (const int32_t& r : rect) put(&r);
        for (int i = 0; i < 106; ++i) {
            const float p[2] = {12.0f + (i % 8), 12.0f + (i % 5)};
            put(&p[0]);
            put(&p[1]);
        }
        app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
        frame();
        ZuPerson* person = app->getGlobalMgr()->getPersonSys()->getPerson("s", 1);
        ASSERT_TRUE(person && person->getExist());
    }
    static const uint8_t* at(const Bytes& pixels, int x, int y) {
        x = std::min(std::max(x, 0), kSide - 1);
        y = std::min(std::max(y, 0), kSide - 1);
        return &pixels[(y * kSide + x) * 4];
    }
};

double greyOf(const uint8_t* p) { return (0.299 * p[0] + 0.587 * p[1] + 0.114 * p[2]) / 255.0; }

// Three vertical bands: white, mid grey, dark; so the picture has two steps
// and every tone of the look.
Bytes bandPicture() {
    return makePicture([](int x, int, uint8_t* p) {
        const uint8_t v = x < 11 ? 255 : (x < 22 ? 150 : 40);
        p[0] = p[1] = p[2] = v;
    });
}

// A pattern for the hatching slot, so that mid tones can be told apart.
Bytes hatchPattern() {
    return makePicture([](int x, int y, uint8_t* p) {
        p[0] = static_cast<uint8_t>((x * 8 + y * 3) % 256);
        p[1] = static_cast<uint8_t>(255 - x * 5);
        p[2] = static_cast<uint8_t>(y * 7);
    });
}

} // namespace

TEST_F(StyleFilterTest, SketchMatchesItsReferenceOnAStepPicture) {
    paint(bandPicture());
    auto* sketch = addNode<ZuSketchFilterNode>("ZuSketchFilterNode", "sketch");
    ASSERT_NE(sketch, nullptr);
    ZuFilterSketchMaterial* material = sketch->getMaterial();
    EXPECT_FLOAT_EQ(material->getThresholdEdge(), -240.0f / 255.0f);
    EXPECT_FLOAT_EQ(material->getThresholdUpper(), 200.0f / 255.0f);
    Bytes hatch = hatchPattern();
    ZuTexture* hatchTex = app->getGlobalMgr()->getTexMgr()->createNullTextureWithData(
        "test_hatch", kSide, kSide, GL_RGBA, GL_RGBA, hatch.data());
    ASSERT_NE(hatchTex, nullptr);
    material->setTexture1(hatchTex);
    frame();
    frame();
    EXPECT_FLOAT_EQ(material->getStepX(), 1.0f / kSide);
    const Bytes out = picture();

    // The nine centres of the look; the pixel itself counts five times.
    const int centres[9][2] = {{0, 0}, {0, 1}, {0, 0}, {0, 2}, {0, 0}, {1, 0}, {0, 0}, {2, 0}, {0, 0}};
    int checked = 0, lines = 0, white = 0, hatched = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const double g0 = greyOf(at(base, x, y));
            double edge = 0.0;
            for (const auto& c : centres)
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx)
                        if (dx || dy) edge += g0 - greyOf(at(base, x + c[0] + dx, y + c[1] + dy));
            edge = 1.0 - edge;
            const double edgeBound = -240.0 / 255.0;
            if (std::fabs(edge - edgeBound) < 0.01) continue; // too close to call in float
            const uint8_t* expect;
            static const uint8_t kBlack[3] = {0, 0, 0}, kWhite[3] = {255, 255, 255};
            if (edge < edgeBound) {
                expect = kBlack;
                ++lines;
            } else if (g0 > 100.0 / 255.0 && g0 < 200.0 / 255.0) {
                expect = at(hatch, x, y);
                ++hatched;
            } else if (g0 > 100.0 / 255.0) {
                expect = kWhite;
                ++white;
            } else {
                expect = kBlack;
            }
            const uint8_t* got = at(out, x, y);
            for (int ch = 0; ch < 3; ++ch)
                ASSERT_LE(std::abs(int(got[ch]) - int(expect[ch])), 2) << "pixel " << x << "," << y << " channel " << ch;
            ASSERT_EQ(got[3], 255) << "sketch writes alpha 1";
            ++checked;
        }
    EXPECT_GT(checked, kSide * kSide * 9 / 10);
    EXPECT_GT(lines, 0) << "the steps give lines";
    EXPECT_GT(hatched, 0);
    // The flat white band, away from its step, is white.
    EXPECT_GT(white, 5 * kSide);
    for (int y = 0; y < kSide; ++y) EXPECT_EQ(at(out, 3, y)[0], 255);
}

TEST_F(StyleFilterTest, PackagesMakeTheSketchShakeAndMattingNodes) {
    paint(bandPicture());
    app->getAppInter()->loadEffect("s", "style_sketch", 51, 0);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("s_sketch_0_51") != nullptr; }));
    EXPECT_NE(dynamic_cast<ZuSketchFilterNode*>(nodes->getNode("s_sketch_0_51")), nullptr);
    frame();
    const Bytes sketched = picture();
    EXPECT_EQ(at(sketched, 28, 16)[0], 0) << "the dark band turns black";
    EXPECT_GT(at(sketched, 16, 16)[0], 150) << "the mid band shows the light hatching image";

    app->getAppInter()->loadEffect("s", "style_shake", 52, 1);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("s_shake_0_52") != nullptr; }));
    EXPECT_NE(dynamic_cast<ZuEffectShakeNode*>(nodes->getNode("s_shake_0_52")), nullptr);

    // Person 0 means every person: one node for each of the four.
    packages.write("matte/config.json", R"({"param": [{"type": "alphaMatting", "id": "m"}]})");
    packages.write("matte2/config.json", R"({"param": [{"type": "alphaMatting", "id": "m", "personid": "2"}]})");
    packages.write("matte9/config.json", R"({"param": [{"type": "alphaMatting", "id": "m", "personid": "9"}]})");
    LogCapture log;
    app->getAppInter()->loadEffect("s", "matte", 53, 2);
    app->getAppInter()->loadEffect("s", "matte2", 54, 3);
    app->getAppInter()->loadEffect("s", "matte9", 55, 4);
    ASSERT_TRUE(waitFor([&] { return nodes->getNode("s_m_4_53") && nodes->getNode("s_m_2_54"); }));
    for (int person = 1; person <= 4; ++person) {
        auto* node = nodes->getNode(("s_m_" + std::to_string(person) + "_53").c_str());
        ASSERT_NE(dynamic_cast<ZuAlphaMattingNode*>(node), nullptr) << person;
        EXPECT_EQ(node->getpersonID(), person);
    }
    EXPECT_EQ(nodes->getNode("s_m_1_54"), nullptr);
    ASSERT_TRUE(waitFor([&] { return log.count("personid", ZU_LOG_WARN) == 1; }));
    EXPECT_EQ(nodes->getNode("s_m_9_55"), nullptr);
}

// Without the engine's resource folder the hatching image cannot load: one
// log line, mid tones show the picture itself, the rest still works.
class StyleFilterNoAssetsTest : public StyleFilterTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {packages.path()}; }
};

TEST_F(StyleFilterNoAssetsTest, SketchWithoutItsHatchingImageLogsAndDrawsTheRest) {
    paint(bandPicture());
    LogCapture log;
    auto* sketch = addNode<ZuSketchFilterNode>("ZuSketchFilterNode", "sketch");
    ASSERT_NE(sketch, nullptr);
    EXPECT_EQ(log.count("hatching image", ZU_LOG_WARN), 1);
    frame();
    const Bytes out = picture();
    EXPECT_EQ(at(out, 3, 16)[0], 255) << "white band";
    EXPECT_EQ(at(out, 16, 16)[0], 150) << "mid band shows the picture";
    EXPECT_EQ(at(out, 28, 16)[0], 0) << "dark band";
}

TEST_F(StyleFilterTest, ShakeSplitsRedAndBlueByTheBeatAndRestsAtThePeriodEnd) {
    // Red and blue are ramps across, so a sideways shift changes them by a
    // known amount; green ramps upwards and must not move.
    paint(makePicture([](int x, int y, uint8_t* p) {
        p[0] = static_cast<uint8_t>(20 + 7 * x);
        p[1] = static_cast<uint8_t>(30 + 6 * y);
        p[2] = static_cast<uint8_t>(230 - 6 * x);
    }));
    auto* shake = addNode<ZuEffectShakeNode>("ZuEffectShakeNode", "shake");
    ASSERT_NE(shake, nullptr);
    ZuMaterialEffectShake* material = shake->getMaterial();
    const float stepMs = 100.0f;
    double largestShift = 0.0;
    int shaken = 0;
    // Red at a texel position, with the edge clamp of the sampler.
    auto ramp = [](double pos, double a, double slope) {
        pos = std::min(std::max(pos, 0.5), kSide - 0.5);
        return a + slope * (pos - 0.5);
    };
    while (true) {
        frame(stepMs);
        const double t = material->getTime();
        if (material->atRest()) break;
        ASSERT_LT(++shaken, 40) << "the period never ended";
        const double amount = ZuMaterialEffectShake::amountAt(t);
        const double gain = 1.0 + amount * 0.002;
        const Bytes out = picture();
        for (int y = 0; y < kSide; y += 5)
            for (int x = 0; x < kSide; x += 3) {
                const double cx = ((x + 0.5) / kSide - 0.5) * 2.0, cy = ((y + 0.5) / kSide - 0.5) * 2.0;
                const double shift = amount * (cx * cx + cy * cy) * cx; // texels
                largestShift = std::max(largestShift, std::fabs(shift));
                const double red = std::min(255.0, ramp(x + 0.5 - shift, 20, 7) * gain);
                const double blue = std::min(255.0, ramp(x + 0.5 + shift, 230, -6) * gain);
                const double green = std::min(255.0, (30 + 6 * y) * gain);
                const uint8_t* got = at(out, x, y);
                ASSERT_NEAR(got[0], red, 2.0) << "t " << t << " pixel " << x << "," << y;
                ASSERT_NEAR(got[1], green, 2.0) << "t " << t << " pixel " << x << "," << y;
                ASSERT_NEAR(got[2], blue, 2.0) << "t " << t << " pixel " << x << "," << y;
            }
    }
    EXPECT_EQ(shaken, 31) << "pi seconds in steps of 100 ms";
    EXPECT_GT(largestShift, 10.0) << "the beat was seen at its strongest";
    // The frame that ends the period is the camera frame, byte for byte.
    EXPECT_EQ(picture(), base);
    frame(stepMs);
    EXPECT_NE(picture(), base) << "the next period starts shaking again";
}

TEST_F(StyleFilterTest, ShakeWithoutACameraSizeLogsOnceAndStaysFinite) {
    paint(bandPicture());
    Camera* camera = app->getGlobalMgr()->getConfig()->getCamera("s");
    camera->width = 0;
    LogCapture log;
    auto* shake = addNode<ZuEffectShakeNode>("ZuEffectShakeNode", "shake");
    ASSERT_NE(shake, nullptr);
    for (int i = 0; i < 3; ++i) frame(100.0f);
    EXPECT_EQ(log.count("no usable size", ZU_LOG_WARN), 1);
    EXPECT_EQ(shake->getMaterial()->getWidth(), 1.0f);
    // One texel is the whole picture: red and blue come from the clamped
    // edges, green stays in place; nothing turns black from a bad number.
    const Bytes out = picture();
    for (int x = 0; x < kSide; x += 4) {
        EXPECT_GT(at(out, x, 16)[1], 30) << x;
        EXPECT_EQ(at(out, x, 16)[3], 255) << x;
    }
}

TEST_F(StyleFilterTest, AlphaMattingPaintsTheBackgroundClassOnlyWhileAFaceIsThere) {
    // A green backdrop with a red square in the middle: green holds all 40
    // samples along the top and sides.
    paint(makePicture([](int x, int y, uint8_t* p) {
        const bool subject = x >= 10 && x < 22 && y >= 4 && y < 20;
        p[0] = subject ? 210 : 40;
        p[1] = subject ? 50 : 190;
        p[2] = subject ? 40 : 60;
    }));
    auto* matting = addNode<ZuAlphaMattingNode>("ZuAlphaMattingNode", "matting");
    ASSERT_NE(matting, nullptr);
    matting->setpersonID(1);
    frame();
    EXPECT_EQ(picture(), base) << "no face, no pass";

    showFace();
    frame();
    frame();
    const Bytes out = picture();
    EXPECT_NE(out, base);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const uint8_t* got = at(out, x, y);
            const bool subject = x >= 10 && x < 22 && y >= 4 && y < 20;
            if (subject) {
                ASSERT_EQ(0, std::memcmp(got, at(base, x, y), 4)) << "subject kept at " << x << "," << y;
            } else {
                ASSERT_EQ(got[0], 255) << x << "," << y;
                ASSERT_EQ(got[1], 255) << x << "," << y;
                ASSERT_EQ(got[2], 0) << x << "," << y;
            }
        }
}

TEST_F(StyleFilterTest, AlphaMattingLeavesAFrameWithoutAMajorityClass) {
    // Four colour classes in equal stripes along the border: none reaches 20.
    paint(makePicture([](int x, int, uint8_t* p) {
        static const uint8_t colours[4][3] = {{200, 30, 30}, {30, 200, 30}, {30, 30, 200}, {20, 20, 20}};
        const uint8_t* c = colours[(x / 8) % 4];
        p[0] = c[0];
        p[1] = c[1];
        p[2] = c[2];
    }));
    auto* matting = addNode<ZuAlphaMattingNode>("ZuAlphaMattingNode", "matting");
    ASSERT_NE(matting, nullptr);
    matting->setpersonID(1);
    showFace();
    frame();
    frame();
    EXPECT_EQ(picture(), base);
}

TEST_F(StyleFilterTest, ScreenPassesBandAndTileThePicture) {
    paint(testPicture());
    auto* outer = addNode<ZuFilterOutter>("ZuFilterOutter", "screen");
    ASSERT_NE(outer, nullptr);
    auto* bands = new ZuMaterialScreenSevenColor(app);
    bands->init();
    outer->setMaterial(bands);
    bands->release();
    frame();
    Bytes out = picture();
    // Bottom band red, top band violet, each half over half the picture.
    const uint8_t* low = at(out, 5, 1);
    EXPECT_NEAR(low[0], 0.5 * at(base, 5, 1)[0] + 127.5, 1.5);
    EXPECT_NEAR(low[1], 0.5 * at(base, 5, 1)[1], 1.5);
    const uint8_t* high = at(out, 5, 30);
    EXPECT_NEAR(high[0], 0.5 * at(base, 5, 30)[0] + 0.5 * 0.545 * 255, 1.5);
    EXPECT_NEAR(high[2], 0.5 * at(base, 5, 30)[2] + 127.5, 1.5);

    auto* four = new ZuMaterialScreenFour(app);
    four->init();
    outer->setMaterial(four);
    four->release();
    frame();
    out = picture();
    // Each quarter is the whole picture at half size: pixel (x, y) of the
    // lower left quarter shows pixel (2x, 2y), and so do the other three.
    for (int y = 0; y < kSide / 2; y += 3)
        for (int x = 0; x < kSide / 2; x += 3) {
            const uint8_t* source = at(base, 2 * x + 1, 2 * y + 1);
            const uint8_t* shown[4] = {at(out, x, y), at(out, x + 16, y), at(out, x, y + 16), at(out, x + 16, y + 16)};
            for (const uint8_t* s : shown)
                for (int ch = 0; ch < 3; ++ch)
                    ASSERT_LE(std::abs(int(s[ch]) - int(source[ch]) ), 8) << x << "," << y;
        }
}

TEST_F(StyleFilterTest, PencilDrawsGreyStrokesOnEdgesAndPaperOnFlatWhite) {
    paint(bandPicture());
    auto* pencil = addNode<ZuPencilDrawingNode>("ZuPencilDrawingNode", "pencil");
    ASSERT_NE(pencil, nullptr);
    ASSERT_NE(pencil->getPencilMaterial(), nullptr);
    frame();
    const Bytes out = picture();
    for (int y = 0; y < kSide; y += 4) {
        const uint8_t* paper = at(out, 3, y);
        EXPECT_EQ(paper[0], 255) << "flat white stays paper";
        const uint8_t* stroke = at(out, 21, y);
        EXPECT_LT(stroke[0], 100) << "the white-grey step is a dark stroke";
        EXPECT_EQ(stroke[0], stroke[1]);
        EXPECT_EQ(stroke[1], stroke[2]);
    }
}

TEST_F(StyleFilterTest, ShakeFilterMovesThePictureByItsOffset) {
    paint(testPicture());
    auto* node = addNode<ZuShakeFilterNode>("ZuShakeFilterNode", "shakeFilter");
    ASSERT_NE(node, nullptr);
    frame();
    EXPECT_EQ(picture(), base) << "offset 0 is a plain copy";
    // A quarter of the clip height is 4 rows of 32.
    node->getMaterial()->setOffsetY(0.25f);
    frame();
    const Bytes out = picture();
    for (int y = 4; y < kSide; y += 5)
        for (int x = 0; x < kSide; x += 5)
            ASSERT_EQ(0, std::memcmp(at(out, x, y), at(base, x, y - 4), 4)) << x << "," << y;
}
