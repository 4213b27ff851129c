// Full-screen colour passes: the swap-and-draw framework, the named looks
// with their look-up images, and the run-time curve look. A painter node
// draws a known picture into the scene first; every check reads the scene's
// pixels back and compares them with a value computed here.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "logicsys/ZuLogicMgr.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/filter/ZuBeauFilterTable.h"
#include "node/filter/ZuFilterMultiMaterial.h"
#include "node/filter/ZuFilterNode.h"
#include "node/filter/ZuFilterOutter.h"
#include "node/filter/ZuGatherMaterial.h"
#include "node/filter/ZuMaterialToneCurves.h"
#include "operate/ZuOperateFilterMoon.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateScreenExpand.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/texture/ZuPngLoader.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "node/filter/FilterFixture.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

namespace {

using namespace filtertest;
using FilterTest = FilterFixture<GLTest>;

// An inverting brightness table for the run-time look: each value v -> 255 - v.
std::vector<char> invertingTable() {
    std::vector<char> table(256 * 3);
    for (int i = 0; i < 256; ++i)
        for (int c = 0; c < 3; ++c) table[i * 3 + c] = static_cast<char>(255 - i);
    return table;
}

} // namespace

TEST_F(FilterTest, ChainedFiltersEachSeeThePictureLeftByTheOneBefore) {
    std::vector<char> invert = invertingTable();
    auto* first = addNode<ZuFilterNode>("ZuFilterNode", "first");
    ASSERT_NE(first, nullptr);
    first->setFilter(1.0f, 0.0f, invert.data(), nullptr, nullptr);
    frame();
    Bytes once = picture();
    Bytes expected = base;
    for (size_t i = 0; i < expected.size(); ++i)
        if (i % 4 != 3) expected[i] = static_cast<uint8_t>(255 - base[i]);
    // The table is sampled half a step in, as the look's shader does: one level off at most.
    EXPECT_LE(maxDifference(once, expected), 2);

    auto* second = addNode<ZuFilterNode>("ZuFilterNode", "second");
    ASSERT_NE(second, nullptr);
    second->setFilter(1.0f, 0.0f, invert.data(), nullptr, nullptr);
    frame();
    EXPECT_LE(maxDifference(picture(), base), 3) << "the second inversion undoes the first";
}

TEST_F(FilterTest, AnOuterFilterDrawsOnlyWithAMaterialAndKeepsOneReference) {
    auto* outer = addNode<ZuFilterOutter>("ZuFilterOutter", "outer");
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(outer->getRStreamType(), RS_FILTER_LATE);
    frame();
    // A swap without a draw would have left a blank picture.
    EXPECT_EQ(picture(), base);

    auto* curves = new ZuMaterialToneCurves(app);
    curves->init();
    outer->setMaterial(curves);
    const uint32_t held = curves->count();
    outer->setMaterial(curves);
    EXPECT_EQ(curves->count(), held);
    curves->release();

    // Without "Chuxia.asv" in the cache slot 1 gets no texture of its own,
    // yet the pass runs: swap and draw.
    frame();
    EXPECT_NE(picture(), base);
    EXPECT_EQ(curves->getTexId(1), 0u);

    // Once the curve image is in the cache the pass samples it, and keeps it
    // alive across the cache's clean-ups though nothing else holds it.
    std::vector<uint8_t> invert(256 * 4);
    for (int i = 0; i < 256; ++i) {
        for (int c = 0; c < 3; ++c) invert[i * 4 + c] = static_cast<uint8_t>(255 - i);
        invert[i * 4 + 3] = 255;
    }
    ZuTexMgr* textures = app->getGlobalMgr()->getTexMgr();
    ASSERT_NE(textures->createNullTextureWithData("Chuxia.asv", 256, 1, GL_RGBA, GL_RGBA, invert.data()), nullptr);
    for (int i = 0; i < 4; ++i) frame();
    EXPECT_TRUE(textures->hasTexture("Chuxia.asv"));
    Bytes expected = base;
    for (size_t i = 0; i < expected.size(); ++i)
        if (i % 4 != 3) expected[i] = static_cast<uint8_t>(255 - base[i]);
    EXPECT_LE(maxDifference(picture(), expected), 2);
}

// A hidden pass records nothing, not even its swap: the frame is the frame
// without it, byte for byte, and showing it again brings the pass back.
TEST_F(FilterTest, HiddenPassesLeaveThePictureAsItWas) {
    std::vector<char> invert = invertingTable();
    auto* gather = addNode<ZuFilterNode>("ZuFilterNode", "gather");
    ASSERT_NE(gather, nullptr);
    gather->setFilter(1.0f, 0.0f, invert.data(), nullptr, nullptr);
    auto* look = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", "new3");
    ASSERT_NE(look, nullptr);
    look->setFilterType(ZUBEAUFILTER_NEW3);
    ASSERT_TRUE(waitFor([&] {
        for (int i = 0; i < ZuBeauFilterNode::kImages; ++i)
            if (look->getFilterTex(i) && !look->getFilterTex(i)->getbLoad()) return false;
        return true;
    }));
    auto* outer = addNode<ZuFilterOutter>("ZuFilterOutter", "outer");
    ASSERT_NE(outer, nullptr);
    auto* curves = new ZuMaterialToneCurves(app);
    curves->init();
    outer->setMaterial(curves);
    curves->release();

    ZuNode* passes[] = {gather, look, outer};
    for (ZuNode* pass : passes) pass->setVisible(false);
    for (ZuNode* pass : passes) {
        pass->setVisible(true);
        frame();
        EXPECT_NE(picture(), base) << pass->getname().c_str() << " draws when shown";
        pass->setVisible(false);
        frame();
        EXPECT_EQ(picture(), base) << pass->getname().c_str() << " drew while hidden";
    }
}

TEST_F(FilterTest, MultiMaterialHolderIgnoresNullAndReleasesWhatItHeld) {
    auto* holder = addNode<ZuFilterMultiMaterial>("ZuFilterMultiMaterial", "holder");
    ASSERT_NE(holder, nullptr);
    auto* material = new ZuMaterial(app, "screennor");
    holder->pushMaterial(nullptr);
    EXPECT_EQ(holder->materialCount(), 0);
    holder->pushMaterial(material);
    EXPECT_EQ(material->count(), 2u);
    frame();
    EXPECT_EQ(picture(), base) << "the holder records nothing itself";
    holder->clearMaterial();
    EXPECT_EQ(material->count(), 1u);
    material->release();
}

TEST_F(FilterTest, ScreenExpandShowsForHalfASecondAndThenLeaves) {
    push(new ZuOperateScreenExpand(app, "s"));
    push(new ZuOperateScreenExpand(app, "no such scene"));
    frame(100.0f);
    EXPECT_EQ(app->getGlobalMgr()->getLogicMgr()->getEftPackNodeCount(), 1u);
    frame(100.0f);
    // The picture plus a fading, enlarged copy of itself: brighter overall.
    Bytes shown = picture();
    EXPECT_GT(mean(shown, 1), mean(base, 1) + 5.0);
    for (int i = 0; i < 5; ++i) frame(100.0f);
    EXPECT_EQ(app->getGlobalMgr()->getLogicMgr()->getEftPackNodeCount(), 0u);
    frame();
    EXPECT_EQ(picture(), base);
}

TEST_F(FilterTest, RunTimeLookWithoutSaturationTurnsThePictureGrey) {
    adjust_parameter parameter;
    parameter.useHsv = true;
    parameter.deltas = 0.0f;
    push(new ZuOperateFilterMoon(app, "s", parameter));
    frame();
    frame();
    auto* node = dynamic_cast<ZuFilterNode*>(nodes->getNode("sfilterGather"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getMaterial()->getIsHsv(), 1);
    Bytes grey = picture();
    for (size_t i = 0; i < grey.size(); i += 4) {
        ASSERT_LE(std::abs(grey[i] - grey[i + 1]), 1) << "pixel " << i / 4;
        ASSERT_LE(std::abs(grey[i] - grey[i + 2]), 1) << "pixel " << i / 4;
        // The value channel is kept: grey at the brightest channel of the source.
        const int brightest = std::max({base[i], base[i + 1], base[i + 2]});
        ASSERT_LE(std::abs(grey[i] - brightest), 2) << "pixel " << i / 4;
    }
}

TEST_F(FilterTest, HostFloatsFillTheRecordCutTowardZero) {
    float values[23] = {};
    values[0] = 12.9f;
    values[3] = -7.8f;
    values[14] = 40.5f;
    values[16] = 128.0f;
    values[17] = 0.5f;
    values[19] = -1.0f;
    values[20] = 30.7f;
    values[21] = 0.25f;
    values[22] = NAN;
    adjust_parameter record = adjust_parameter::fromFloats(values);
    EXPECT_EQ(record.delta.brightR, 12);
    EXPECT_EQ(record.delta.brightAll, -7);
    EXPECT_EQ(record.delta.contrast[3].first, 40);
    EXPECT_EQ(record.delta.contrast[3].pivot, 128);
    EXPECT_TRUE(record.delta.useBrightness);
    EXPECT_FALSE(record.delta.useContrast);
    EXPECT_FALSE(record.delta.contrastLinear);
    EXPECT_TRUE(record.useHsv);
    EXPECT_EQ(record.deltah, 30);
    EXPECT_FLOAT_EQ(record.deltas, 0.25f);
    EXPECT_EQ(record.hsvCurve, 0) << "NaN from a host is no number";
}

// ---------------------------------------------------------------------------
// Named looks.

namespace {

// The cube look computed on the CPU from the look's own image, as the
// shader samples it: bilinear texel reads, blue mixed between two tiles.
struct CubeReference {
    Bytes image;
    int side = 0;
    int channels = 3;

    double texel(int x, int y, int c) const {
        x = std::min(std::max(x, 0), side - 1);
        y = std::min(std::max(y, 0), side - 1);
        return image[(y * side + x) * channels + c];
    }
    double bilinear(double u, double v, int c) const {
        const double x = u * side - 0.5, y = v * side - 0.5;
        const int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
        const double fx = x - x0, fy = y - y0;
        return (texel(x0, y0, c) * (1 - fx) + texel(x0 + 1, y0, c) * fx) * (1 - fy) +
               (texel(x0, y0 + 1, c) * (1 - fx) + texel(x0 + 1, y0 + 1, c) * fx) * fy;
    }
    double look(const uint8_t* rgb, int levels, int tiles, int c) const {
        const double r = rgb[0] / 255.0, g = rgb[1] / 255.0, b = rgb[2] / 255.0;
        const double blue = b * (levels - 1);
        const int n0 = static_cast<int>(std::floor(blue));
        const int n1 = std::min(n0 + 1, levels - 1);
        const double width = 1.0 / tiles;
        auto at = [&](int n) {
            const int row = n / tiles, col = n % tiles;
            const double u = col * width + 0.5 / side + (width - 1.0 / side) * r;
            const double v = row * width + 0.5 / side + (width - 1.0 / side) * g;
            return bilinear(u, v, c);
        };
        return at(n0) + (at(n1) - at(n0)) * (blue - n0);
    }
};

} // namespace

TEST_F(FilterTest, CubeLooksFollowTheirTablesAsTheTileFormulaSays) {
    struct Case {
        ZUBEAUFILTERTYPE type;
        int levels;
        int tiles;
    };
    for (Case c : {Case{ZUBEAUFILTER_PINK, 16, 4}, Case{ZUBEAUFILTER_SNOW, 64, 8}}) {
        const ZuBeauFilterTable::Look* look = ZuBeauFilterTable::lookOf(c.type);
        CubeReference reference;
        ZuPngLoader loader(app);
        unsigned char* pixels = nullptr;
        const std::string path = std::string("shader/filter/filterimg/") + look->images[0];
        ASSERT_TRUE(loader.loadData(path.c_str(), &pixels)) << path;
        reference.side = loader.getWidth();
        reference.channels = loader.getGlFormat() == GL_RGBA ? 4 : 3;
        reference.image.assign(pixels, pixels + loader.getDataSize());
        std::free(pixels);
        ASSERT_EQ(reference.side, c.levels * c.tiles);

        auto* node = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", look->subType);
        ASSERT_NE(node, nullptr);
        node->setFilterType(c.type);
        ASSERT_TRUE(waitFor([&] { return node->getFilterTex(0)->getbLoad(); })) << look->subType;
        frame();
        Bytes graded = picture();
        double worst = 0;
        for (size_t i = 0; i < graded.size(); i += 4)
            for (int ch = 0; ch < 3; ++ch)
                worst = std::max(worst, std::fabs(graded[i + ch] - reference.look(&base[i], c.levels, c.tiles, ch)));
        EXPECT_LE(worst, 3.0) << look->subType;
        node->removeFromParent();
        frame();
    }
}

TEST_F(FilterTest, EveryNamedLookDrawsOnceItsImagesHaveArrived) {
    for (int type = 0; type < ZUBEAUFILTER_COUNT; ++type) {
        const ZuBeauFilterTable::Look* look = ZuBeauFilterTable::lookOf(type);
        auto* node = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", look->subType);
        ASSERT_NE(node, nullptr);
        node->setFilterType(static_cast<ZUBEAUFILTERTYPE>(type));
        ASSERT_TRUE(node->hasLook()) << look->subType;
        ASSERT_TRUE(waitFor([&] {
            for (int i = 0; i < ZuBeauFilterNode::kImages; ++i)
                if (node->getFilterTex(i) && !node->getFilterTex(i)->getbLoad()) return false;
            return true;
        })) << look->subType << " never loaded its images";
        frame();
        Bytes graded = picture();
        EXPECT_GE(maxDifference(graded, base), 3) << look->subType << " left the picture as it was";
        EXPECT_GT(mean(graded, 0) + mean(graded, 1) + mean(graded, 2), 60.0) << look->subType << " blanked it";
        node->removeFromParent();
        frame();
    }
}

TEST_F(FilterTest, LooksLookLikeTheirNames) {
    auto graded = [&](ZUBEAUFILTERTYPE type) {
        auto* node = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", "look");
        node->setFilterType(type);
        EXPECT_TRUE(waitFor([&] { return node->getFilterTex(0)->getbLoad(); }));
        frame();
        Bytes out = picture();
        node->removeFromParent();
        frame();
        return out;
    };
    auto saturation = [&](const Bytes& p) {
        double sum = 0;
        for (size_t i = 0; i < p.size(); i += 4)
            sum += std::max({p[i], p[i + 1], p[i + 2]}) - std::min({p[i], p[i + 1], p[i + 2]});
        return sum / (p.size() / 4);
    };
    const double baseRedOverGreen = mean(base, 0) - mean(base, 1);
    Bytes pink = graded(ZUBEAUFILTER_PINK);
    EXPECT_GT(mean(pink, 0) - mean(pink, 1), baseRedOverGreen + 5) << "pink is redder than green";
    Bytes snow = graded(ZUBEAUFILTER_SNOW);
    EXPECT_GT(mean(snow, 2) - mean(snow, 0), mean(base, 2) - mean(base, 0) + 5) << "snow is cold";
    EXPECT_GT(mean(snow, 0) + mean(snow, 1) + mean(snow, 2), mean(base, 0) + mean(base, 1) + mean(base, 2))
        << "snow is bright";
    Bytes vintage = graded(ZUBEAUFILTER_VINTAGE);
    EXPECT_LT(saturation(vintage), saturation(base) - 5) << "vintage is faded";
    Bytes vivid = graded(ZUBEAUFILTER_VIVID);
    EXPECT_GT(saturation(vivid), saturation(base) + 5) << "vivid is vivid";
}

TEST_F(FilterTest, ALookStaysAwayUntilItsImagesArriveAndForeverWithoutThem) {
    auto* node = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", "missing");
    node->setFilterType(ZUBEAUFILTER_NEW3);
    // A look that needs no image draws in its first frame.
    frame();
    EXPECT_NE(picture(), base);

    ZuTexture* missing = app->getGlobalMgr()->getTexMgr()->getTexture("shader/filter/filterimg/nothing.png");
    node->setFilterType(ZUBEAUFILTER_PINK);
    node->setFilterTex01(missing);
    for (int i = 0; i < 20; ++i) frame();
    EXPECT_EQ(picture(), base) << "an image that never loads keeps the look out";

    auto* plain = addNode<ZuBeauFilterNode>("ZuBeauFilterNode", "plain");
    EXPECT_FALSE(plain->hasLook());
    node->removeFromParent();
    frame();
    EXPECT_EQ(picture(), base) << "a node without a look draws nothing";
}

// ---------------------------------------------------------------------------
// Package items.

TEST_F(FilterTest, FilterGatherItemsPickALookBySubTypeOrByAFilterFile) {
    std::string full = "{\"Deltas\": \"1.0\", \"brightness\": [";
    for (int i = 0; i < 768; ++i) full += std::to_string(255 - i / 3) + (i < 767 ? "," : "]}");
    packages.write("looks/warm.json", full);
    packages.write("looks/short.json", "{\"hsv\": [1, 2, 3]}");
    packages.write("looks/config.json", R"({"param": [
        {"id": "a", "type": "filterGather", "subType": "nature"},
        {"id": "b", "type": "filterGather", "subType": "no-such-look"},
        {"id": "c", "type": "filterGather", "subType": "pink", "filterName": "warm"},
        {"id": "d", "type": "filterGather", "subType": "pink", "filterName": "short"}
    ]})");
    LogCapture log;
    app->getAppInter()->loadEffect("s", "looks", 7);
    ZuNode* named = nullptr;
    ASSERT_TRUE(waitFor([&] { return (named = nodes->getNode("s_a_0_7")) != nullptr; }));
    auto* nature = dynamic_cast<ZuBeauFilterNode*>(named);
    ASSERT_NE(nature, nullptr);
    EXPECT_EQ(nature->getFilterType(), ZUBEAUFILTER_NATURE);
    EXPECT_STREQ(ZuBeauFilterTable::lookOf(nature->getFilterType())->program, "sweetyFilter");

    auto* unknown = dynamic_cast<ZuBeauFilterNode*>(nodes->getNode("s_b_0_7"));
    ASSERT_NE(unknown, nullptr);
    EXPECT_FALSE(unknown->hasLook());
    EXPECT_EQ(log.count("no-such-look", ZU_LOG_WARN), 1);

    auto* fromFile = dynamic_cast<ZuFilterNode*>(nodes->getNode("s_c_0_7"));
    ASSERT_NE(fromFile, nullptr) << "a filter file's complete tables make a run-time look";
    EXPECT_NE(fromFile->getBrightnessTex(), nullptr);

    auto* shortFile = dynamic_cast<ZuBeauFilterNode*>(nodes->getNode("s_d_0_7"));
    ASSERT_NE(shortFile, nullptr);
    EXPECT_FALSE(shortFile->hasLook());
    EXPECT_EQ(log.count("shorter than 256", ZU_LOG_WARN), 1);
}

// Every look through a package, one after another on a colour chart: each
// changes the chart, and no two looks give the same picture.
class LookChartTest : public FilterTest {
protected:
    void SetUp() override {
        PainterNode::useChart() = true;
        FilterTest::SetUp();
    }
    void TearDown() override {
        FilterTest::TearDown();
        PainterNode::useChart() = false;
    }
};

TEST_F(LookChartTest, EveryLookFromAPackageChangesTheChartAndDiffersFromEveryOther) {
    std::vector<Bytes> graded(ZUBEAUFILTER_COUNT);
    for (int type = 0; type < ZUBEAUFILTER_COUNT; ++type) {
        const ZuBeauFilterTable::Look* look = ZuBeauFilterTable::lookOf(type);
        const std::string name = std::string("look_") + look->subType;
        packages.write(name + "/config.json", std::string(R"({"param": [{"id": "look", "type": "filterGather", "subType": ")") +
                                                  look->subType + "\"}]}");
        const int resUID = 100 + type;
        app->getAppInter()->loadEffect("s", name.c_str(), resUID);
        ZuBeauFilterNode* node = nullptr;
        const std::string nodeName = "s_look_0_" + std::to_string(resUID);
        ASSERT_TRUE(waitFor([&] {
            node = dynamic_cast<ZuBeauFilterNode*>(nodes->getNode(nodeName.c_str()));
            if (!node) return false;
            for (int i = 0; i < ZuBeauFilterNode::kImages; ++i)
                if (node->getFilterTex(i) && !node->getFilterTex(i)->getbLoad()) return false;
            return true;
        })) << look->subType;
        frame();
        graded[type] = picture();
        EXPECT_GE(maxDifference(graded[type], base), 3) << look->subType << " left the chart as it was";
        app->getAppInter()->delEffect("s", name.c_str(), resUID);
        frame();
        frame();
        ASSERT_EQ(picture(), base) << look->subType << " stayed after its package was deleted";
    }
    for (int a = 0; a < ZUBEAUFILTER_COUNT; ++a)
        for (int b = a + 1; b < ZUBEAUFILTER_COUNT; ++b)
            EXPECT_GE(maxDifference(graded[a], graded[b]), 2)
                << ZuBeauFilterTable::lookOf(a)->subType << " and " << ZuBeauFilterTable::lookOf(b)->subType
                << " look the same on the chart";
}
