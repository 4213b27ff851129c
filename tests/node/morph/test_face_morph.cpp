// The grid morphs on the sample portrait's AS face: where the grid moves,
// what the picture shows there, and the "morph" and "faceMorph" items.
#include "node/morph/ZuFaceBearNode.h"
#include "node/morph/ZuFaceFatNode.h"
#include "node/morph/ZuFaceMorphNode.h"
#include "node/morph/ZuFaceBearPointyNode.h"
#include "parse/ZuParseFaceMorph.h"
#include "parse/ZuParseMorph.h"
#include "support/LogCapture.h"
#include "support/PhotoSceneFixture.h"

#include <rapidjson/document.h>

#include <iostream>

using namespace photoscene;

namespace {

const int kColumns = ZuFaceMorphNode::kGridWidth + 1;

struct Move {
    int vertex = -1;
    double dx = 0, dy = 0, size = 0;
};

// The vertex that moved furthest from its resting place, in pixels.
Move largestMove(const ZuFaceMorphNode* node) {
    Move best;
    const float *w = node->getWorkingPositions(), *r = node->getRestPositions();
    for (int v = 0; v < ZuFaceMorphNode::kVertexCount; ++v) {
        double dx = (w[v * 2] - r[v * 2]) * kSize / 2, dy = (w[v * 2 + 1] - r[v * 2 + 1]) * kSize / 2;
        double size = std::hypot(dx, dy);
        if (size > best.size) best = {v, dx, dy, size};
    }
    return best;
}

class FaceMorphTest : public PhotoSceneFixture {
protected:
    template <class T>
    T* morph(const char* type) {
        // The grid morph follows person 1 with its own person number 0.
        return addNode<T>(type, "s_morph_0_7", 0);
    }
    // The picture of a vertex: where the grid puts it now, the output shows
    // what lay at its resting place in the source. Both are read between
    // pixel centres, so a squeezed neighbourhood costs up to half a pixel
    // of the grid's slope (about 20 levels a pixel).
    int vertexColourError(const ZuFaceMorphNode* node, int v, const Bytes& source, const Bytes& out) {
        const float *w = node->getWorkingPositions(), *r = node->getRestPositions();
        double got[3], want[3];
        sampleLinear(out, (w[v * 2] + 1) * 0.5, (w[v * 2 + 1] + 1) * 0.5, got);
        sampleLinear(source, (r[v * 2] + 1) * 0.5, (r[v * 2 + 1] + 1) * 0.5, want);
        int worst = 0;
        for (int c = 0; c < 3; ++c) worst = std::max(worst, static_cast<int>(std::lround(std::fabs(got[c] - want[c]))));
        return worst;
    }
    static bool cornersEqual(const Bytes& a, const Bytes& b) {
        for (int y : {0, 1, kSize - 2, kSize - 1})
            for (int x : {0, 1, kSize - 2, kSize - 1})
                for (int c = 0; c < 4; ++c)
                    if (at(a, x, y, c) != at(b, x, y, c)) return false;
        return true;
    }
    ZuParseData* parseItem(const char* json, bool faceMorph = false) {
        rapidjson::Document doc;
        doc.Parse(json);
        return faceMorph ? ZuParseFaceMorph::parseFaceMorph(app, doc, kResUID, kScene, "pkg/")
                         : ZuParseMorph::parseMorph(app, doc, kResUID, kScene, "pkg/");
    }
};

} // namespace

// Drawn through the resting grid the picture comes out as it went in, the
// right way up: the top row of the camera frame is the top row of the
// scene's picture.
TEST_F(FaceMorphTest, RestingGridKeepsThePictureUprightAndUnchanged) {
    const Bytes source = picture();
    auto* node = morph<ZuFaceMorphNode>("ZuFaceMorphNode");
    ASSERT_NE(node, nullptr);
    frame();
    frame();
    EXPECT_TRUE(node->getDrawFlag());
    EXPECT_EQ(largestMove(node).vertex, -1);
    const Bytes out = picture();
    int worst = 0;
    for (size_t i = 0; i < out.size(); ++i) worst = std::max(worst, std::abs(out[i] - source[i]));
    EXPECT_LE(worst, 1);
    // Camera row 0 (the photo's top) is the last row GL reads back.
    for (int x = 0; x < kSize; x += 37)
        for (int c = 0; c < 3; ++c) EXPECT_NEAR(at(out, x, kSize - 1, c), photo[x * 4 + c], 1);
    // No face: nothing drawn, the frame passes as the camera sent it.
    frame(false);
    EXPECT_FALSE(node->getDrawFlag());
}

// The fat face pushes the contour outwards: the furthest moved vertex lies
// by the contour and moved away from the face's centre, the picture shows
// the source of its resting place there, the push grows with strength and
// vanishes at 0, and the border of the grid and the corners stay put.
TEST_F(FaceMorphTest, FatFacePushesOutwardsMoreWithStrengthAndNotAtZero) {
    useGridPicture();
    frame();
    const Bytes source = picture();
    auto* node = morph<ZuFaceFatNode>("ZuFaceFatNode");
    ASSERT_NE(node, nullptr);
    node->setParameter(0.5f, nullptr, nullptr);
    frame();
    // The first frame starts at strength 3 whatever was set before.
    EXPECT_FLOAT_EQ(node->getStrength(), 3.0f);
    double last = -1;
    for (float value : {0.0f, 0.2f, 0.5f, 1.0f}) {
        node->setParameter(value, nullptr, nullptr);
        frame();
        EXPECT_FLOAT_EQ(node->getStrength(), value * 10);
        const Bytes out = picture();
        Move m = largestMove(node);
        if (value == 0.0f) {
            EXPECT_EQ(m.vertex, -1);
            EXPECT_EQ(out, source);
            last = 0;
            continue;
        }
        ASSERT_GE(m.vertex, 0);
        std::cout << "fat " << value << ": largest move " << m.size << " px\n";
        EXPECT_GT(m.size, last);
        last = m.size;
        // Away from the centre of the face (landmark 97).
        const float* c = node->getContour();
        const float* r = node->getRestPositions();
        double ox = r[m.vertex * 2] - c[34], oy = r[m.vertex * 2 + 1] - c[35];
        EXPECT_GT(ox * m.dx + oy * m.dy, 0.0) << "vertex " << m.vertex;
        EXPECT_LE(vertexColourError(node, m.vertex, source, out), 10);
        EXPECT_TRUE(cornersEqual(out, source));
        const float* w = node->getWorkingPositions();
        for (int v = 0; v < ZuFaceMorphNode::kVertexCount; ++v) {
            int i = v % kColumns, j = v / kColumns;
            if (i == 0 || j == 0 || i == ZuFaceMorphNode::kGridWidth || j == ZuFaceMorphNode::kGridHeight) {
                ASSERT_EQ(w[v * 2], r[v * 2]);
                ASSERT_EQ(w[v * 2 + 1], r[v * 2 + 1]);
            }
        }
    }
}

// The bear squeezes the lower face up towards the eyes: between the eyes
// and the chin the grid moves up, more the less of the face is kept, and
// not at all beyond the face's sides; a pointy chin pulls inwards.
TEST_F(FaceMorphTest, BearSqueezesTheLowerFaceUpAndPointyChinsPullIn) {
    useGridPicture();
    frame();
    const Bytes source = picture();
    auto* bear = morph<ZuFaceBearNode>("ZuFaceBearNode");
    ASSERT_NE(bear, nullptr);
    frame();
    EXPECT_FLOAT_EQ(bear->getBearRatio(), 0.85f);
    const float* c = bear->getContour();
    // The vertex nearest the chin (contour point 8).
    int col = static_cast<int>(std::lround((c[16] + 1) * 0.5 * ZuFaceMorphNode::kGridWidth));
    int row = static_cast<int>(std::lround((c[17] + 1) * 0.5 * ZuFaceMorphNode::kGridHeight));
    int chinVertex = col + kColumns * row;
    double previous = 0;
    for (float kept : {1.0f, 0.85f, 0.5f}) {
        bear->setParameter(kept, nullptr, nullptr);
        frame();
        const float *w = bear->getWorkingPositions(), *r = bear->getRestPositions();
        double up = (w[chinVertex * 2 + 1] - r[chinVertex * 2 + 1]) * kSize / 2;
        std::cout << "bear keeps " << kept << ": chin moves up " << up << " px\n";
        if (kept < 1.0f) {
            EXPECT_GT(up, previous + 1.0);
            EXPECT_LE(vertexColourError(bear, chinVertex, source, picture()), 10);
        }
        previous = up;
        // Far right of the face, level with the chin: untouched.
        int far = kColumns - 3 + kColumns * row;
        EXPECT_EQ(w[far * 2 + 1], r[far * 2 + 1]);
    }
    EXPECT_TRUE(cornersEqual(picture(), source));
    bear->reset();
    EXPECT_FLOAT_EQ(bear->getBearRatio(), 0.85f);

    scene->removeChild(bear);
    auto* pointy = morph<ZuFaceBearPointyNode>("ZuFaceBearPointyNode");
    ASSERT_NE(pointy, nullptr);
    pointy->setParameter(1.0f, nullptr, nullptr);  // no squeeze: only the pushes
    frame();
    frame();
    // Contour point 7, next to the chin, pulls towards the far side of the
    // face: the vertex nearest it moves that way.
    const float* pc = pointy->getContour();
    const float *w = pointy->getWorkingPositions(), *r = pointy->getRestPositions();
    int nearest = 0;
    double best = 1e9;
    for (int v = 0; v < ZuFaceMorphNode::kVertexCount; ++v) {
        double d = std::hypot(r[v * 2] - pc[14], r[v * 2 + 1] - pc[15]);
        if (d < best) best = d, nearest = v;
    }
    double inward = (w[nearest * 2] - r[nearest * 2]) * (pc[18] - pc[14]) +
                    (w[nearest * 2 + 1] - r[nearest * 2 + 1]) * (pc[19] - pc[15]);
    std::cout << "pointy: vertex by the chin moves " << std::hypot(w[nearest * 2] - r[nearest * 2], w[nearest * 2 + 1] - r[nearest * 2 + 1]) * kSize / 2 << " px\n";
    EXPECT_GT(inward, 0.0);
}

// The bulge swells the push from nothing to full and back over its cycle.
TEST_F(FaceMorphTest, BulgeSwingsBetweenNothingAndFull) {
    auto* node = morph<ZuFaceFatNode>("ZuFaceFatNode");
    ASSERT_NE(node, nullptr);
    float x[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    node->setBulgeArray(x, x, 1.2f);
    frame();
    EXPECT_TRUE(node->isBulgeEnabled());
    EXPECT_FLOAT_EQ(node->getBulgeRatio(), 0.0f);  // the first run counts no time
    float highest = 0, lowestAfter = 2;
    bool fell = false;
    for (int i = 0; i < 30; ++i) {
        node->update(100.0f);  // 0.1 s a tick
        highest = std::max(highest, node->getBulgeRatio());
        if (highest >= 1.0f && node->getBulgeRatio() < highest) fell = true;
        if (fell) lowestAfter = std::min(lowestAfter, node->getBulgeRatio());
    }
    EXPECT_GE(highest, 1.0f);
    EXPECT_LE(highest, 1.0f + 0.1f / 0.6f + 1e-4f);
    EXPECT_TRUE(fell);
    EXPECT_LT(lowestAfter, 0.1f);
    node->reset();
    EXPECT_FALSE(node->isBulgeEnabled());
}

// Strengths outside 0..1 are clamped with a log line; bad rule lists for
// the landmark morph are refused whole.
TEST_F(FaceMorphTest, OddStrengthsClampAndBadRulesAreRefused) {
    auto* node = morph<ZuFaceFatNode>("ZuFaceFatNode");
    ASSERT_NE(node, nullptr);
    frame();
    LogCapture log;
    node->setParameter(1.7f, nullptr, nullptr);
    EXPECT_FLOAT_EQ(node->getParameter(), 1.0f);
    node->setParameter(std::nanf(""), nullptr, nullptr);
    EXPECT_FLOAT_EQ(node->getParameter(), 0.0f);
    EXPECT_EQ(log.count("outside 0..1"), 2);
    frame();
    EXPECT_EQ(largestMove(node).vertex, -1);
}

// The "morph" item builds the shape its mode names, on AS a grid morph of
// person 1; a bulge swells; anything else is skipped with a log line.
TEST_F(FaceMorphTest, MorphItemBuildsTheNamedShape) {
    ZuParseData* bear = parseItem(R"({"type":"morph","id":"b","mode":"bear","adjust":"0.6"})");
    ASSERT_NE(bear, nullptr);
    bear->generate(kResUID, kScene, nullptr);
    ASSERT_EQ(bear->getNodes().size(), 1u);
    auto* bearNode = dynamic_cast<ZuFaceBearNode*>(bear->getNodes()[0]);
    ASSERT_NE(bearNode, nullptr);
    EXPECT_FLOAT_EQ(bearNode->getBearRatio(), 0.6f);
    EXPECT_EQ(bearNode->getpersonID(), 0);
    bear->release();

    ZuParseData* bulge = parseItem(
        R"({"type":"morph","id":"u","mode":"bulge","bulgeX":["1","1","1","1","1","1","0","0"],"bulgeY":["1","1","1","1","1","1","0","0"]})");
    ASSERT_NE(bulge, nullptr);
    bulge->generate(kResUID, kScene, nullptr);
    ASSERT_EQ(bulge->getNodes().size(), 1u);
    auto* fat = dynamic_cast<ZuFaceFatNode*>(bulge->getNodes()[0]);
    ASSERT_NE(fat, nullptr);
    EXPECT_TRUE(fat->isBulgeEnabled());
    EXPECT_FLOAT_EQ(fat->getDeltaX()[1], 2.0f);
    bulge->release();

    LogCapture log;
    ZuParseData* unknown = parseItem(R"({"type":"morph","id":"x","mode":"dragon"})");
    ASSERT_NE(unknown, nullptr);
    unknown->generate(kResUID, kScene, nullptr);
    EXPECT_TRUE(unknown->getNodes().empty());
    EXPECT_EQ(log.count("no shape \"dragon\""), 1);
    unknown->release();
    EXPECT_EQ(parseItem(R"({"type":"morph","id":"y","mode":"bulge","bulgeX":["1","2"]})"), nullptr);
    EXPECT_EQ(parseItem(R"({"type":"morph","id":"z","adjust":"1"})"), nullptr);
    EXPECT_EQ(log.count("morph skipped") + log.count("without a text \"mode\""), 2);

    // "faceMorph": type 6 makes nothing, an item of another type is no faceMorph.
    ZuParseData* six = parseItem(R"({"type":"faceMorph","id":"f","faceMorphType":6})", true);
    ASSERT_NE(six, nullptr);
    six->generate(kResUID, kScene, nullptr);
    EXPECT_TRUE(six->getNodes().empty());
    six->release();
    EXPECT_EQ(parseItem(R"({"type":"morph","faceMorphType":1})", true), nullptr);
    EXPECT_EQ(parseItem(R"({"type":"faceMorph","faceMorphType":"1"})", true), nullptr);
    const char* nodeType = nullptr;
    float level = 0;
    bool small = false;
    ASSERT_TRUE(ZuParseFaceMorph::warpOf(3, &nodeType, &level, &small));
    EXPECT_STREQ(nodeType, "ZuSmallFaceNode");
    EXPECT_FLOAT_EQ(level, 0.6f);
    EXPECT_FALSE(small);
}

// The slim modes are the beauty warp: on the portrait the jaw shows what
// lay further out, so the face is narrower, and the corners stay.
TEST_F(FaceMorphTest, SlimItemNarrowsTheJaw) {
    const Bytes source = picture();
    ZuParseData* slim = parseItem(R"({"type":"morph","id":"slim","mode":"slim"})");
    ASSERT_NE(slim, nullptr);
    slim->generate(kResUID, kScene, nullptr);
    ASSERT_EQ(slim->getNodes().size(), 1u);
    scene->addChild(slim->getNodes()[0]);
    slim->release();
    frame();
    frame();
    const Bytes out = picture();
    ZuPerson* face = person();
    int outward = 0, total = 0;
    // AS contour: 1..8 the image-left jaw, 10..17 the right one.
    for (int landmark : {4, 5, 6, 7, 11, 12, 13, 14}) {
        int px = static_cast<int>(std::lround(face->getFaceDataX(landmark)));
        int py = static_cast<int>(std::lround(face->getFaceDataY(landmark)));
        int outwardSign = landmark < 9 ? -1 : 1;
        int bestShift = 0;
        double best = 1e18;
        for (int shift = -6; shift <= 6; ++shift) {
            double d = 0;
            for (int dy = -3; dy <= 3; ++dy)
                for (int dx = -3; dx <= 3; ++dx) {
                    double a = luma(out, px + dx, py + dy) - luma(source, px + dx + shift, py + dy);
                    d += a * a;
                }
            if (d < best) best = d, bestShift = shift;
        }
        outward += bestShift * outwardSign > 0;
        ++total;
    }
    std::cout << "slim: " << outward << " of " << total << " jaw points show content from further out\n";
    EXPECT_GE(outward, total * 3 / 4);
    EXPECT_TRUE(cornersEqual(out, source));
}
