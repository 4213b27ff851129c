// Lenses on the face: the engine's pass against the documented formulas
// computed here in doubles, on a grid picture and on the sample portrait.
#include "node/morph/ZuCircleDistortionNode.h"
#include "node/morph/ZuEllipseDistortionNode.h"
#include "node/morph/ZuEnlargeEllipseMaterial.h"
#include "node/morph/ZuEnlargeEyeMaterial.h"
#include "parse/ZuParseDistortion.h"
#include "support/LogCapture.h"
#include "support/PhotoSceneFixture.h"

#include <rapidjson/document.h>

#include <iostream>
#include <memory>

using namespace photoscene;

namespace {

// A lens as the shader sees it, in camera pixels.
struct Lens {
    double cx, cy;        // the point pulled towards
    double lx, ly, rx, ry; // foci; both on the centre for a round lens
    double radius, intensity;
    // The lens weight at a pixel centre, -1 outside.
    double weight(double px, double py) const {
        if (radius <= 0) return -1;
        double l = (std::hypot(lx - px, ly - py) + std::hypot(rx - px, ry - py)) / (2 * radius);
        if (l > 1) return -1;
        double o = 1 - l;
        return o * o * (3 - 2 * o);
    }
    // What the pass writes at pixel (x, y) of a source picture.
    void apply(const Bytes& source, int x, int y, double out[3]) const {
        double u = (x + 0.5) / kSize, v = (y + 0.5) / kSize;
        double o = weight(u * kSize, v * kSize);
        if (o < 0) {
            for (int c = 0; c < 3; ++c) out[c] = at(source, x, y, c);
            return;
        }
        double dx = cx - u * kSize, dy = cy - v * kSize;
        sampleLinear(source, u + intensity * dx / kSize * o, v + intensity * dy / kSize * o, out);
    }
};

// The largest channel difference between the engine's picture and the
// reference over a square of half size reach around the lens centre, and
// how many of the compared pixels lay inside the lens.
struct Comparison {
    int worst = 0, inside = 0, outside = 0;
};
Comparison compare(const Lens& lens, const Bytes& source, const Bytes& out, double reach) {
    Comparison result;
    for (int y = static_cast<int>(lens.cy - reach); y <= lens.cy + reach; y += 3)
        for (int x = static_cast<int>(lens.cx - reach); x <= lens.cx + reach; x += 3) {
            if (x < 0 || y < 0 || x >= kSize || y >= kSize) continue;
            double ref[3];
            lens.apply(source, x, y, ref);
            (lens.weight(x + 0.5, y + 0.5) >= 0 ? result.inside : result.outside)++;
            for (int c = 0; c < 3; ++c) {
                int d = static_cast<int>(std::lround(std::fabs(ref[c] - at(out, x, y, c))));
                result.worst = std::max(result.worst, d);
            }
        }
    return result;
}

class LensTest : public PhotoSceneFixture {
protected:
    ZuCircleDistortionNode* circle(int landmark, float intensity, float radius) {
        auto* node = addNode<ZuCircleDistortionNode>("ZuCircleDistortionNode", "s_lens_0_7");
        if (!node) return nullptr;
        node->setbindIndex(landmark);
        node->setintensity(intensity);
        node->setradius(radius);
        return node;
    }
    // A package item as JSON, parsed as the package reader hands it over.
    std::unique_ptr<ZuParseDistortion, void (*)(ZuParseDistortion*)> parse(const char* json) {
        rapidjson::Document doc;
        doc.Parse(json);
        auto* data = static_cast<ZuParseDistortion*>(ZuParseDistortion::parseDistortion(app, doc, kResUID, kScene, "pkg/"));
        return {data, [](ZuParseDistortion* d) { if (d) d->release(); }};
    }
};

} // namespace

// The round lens on the left pupil of the portrait's face, over a grid
// picture: inside and outside the rim the engine writes what the formula
// gives, within 2 levels; its centre and radius come from the face.
TEST_F(LensTest, RoundLensFollowsTheFormulaInsideAndOutsideTheRim) {
    useGridPicture();
    frame();
    const Bytes source = picture();
    ZuCircleDistortionNode* node = circle(13, 0.6f, 1.2f);
    ASSERT_NE(node, nullptr);
    frame();
    frame();
    const Bytes out = picture();
    ZuPersonTracker* face = tracker();
    ASSERT_NE(face, nullptr);
    const float* centre = node->getMaterial()->getCentralPos();
    // Standard landmark 13 is the left pupil, AS point 95.
    EXPECT_FLOAT_EQ(centre[0], person()->getFaceDataX(95));
    EXPECT_FLOAT_EQ(centre[1], person()->getFaceDataY(95));
    ASSERT_GT(face->eyeDistanceCopy, 20.0f);
    EXPECT_FLOAT_EQ(node->getMaterial()->getRadius(), 1.2f * face->eyeDistanceCopy);

    Lens lens{centre[0], centre[1], centre[0], centre[1], centre[0], centre[1],
              node->getMaterial()->getRadius(), 0.6};
    Comparison c = compare(lens, source, out, lens.radius * 1.4);
    EXPECT_LE(c.worst, 2);
    EXPECT_GT(c.inside, 300);
    EXPECT_GT(c.outside, 100);
    // The middle shows what lay nearer the centre: the grid is magnified
    // there, by 1 / (1 - intensity) at the very centre.
    EXPECT_NE(out, source);
    // Far from the lens, byte for byte the camera frame.
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            for (int ch = 0; ch < 4; ++ch) ASSERT_EQ(at(out, x, y, ch), at(source, x, y, ch));
}

// An oval lens on the left eye, its size from that eye's own distance to
// the face axis, its foci on the eye line, matches the formula as well; a
// negative intensity shrinks instead.
TEST_F(LensTest, OvalLensFollowsTheFormulaAndShrinksWhenNegative) {
    useGridPicture();
    frame();
    const Bytes source = picture();
    auto* node = addNode<ZuEllipseDistortionNode>("ZuEllipseDistortionNode", "s_oval_0_7");
    ASSERT_NE(node, nullptr);
    node->setbindIndex(15);  // top of the left eye, AS point 42: region 0
    node->setintensity(-0.5f);
    node->setradiusx(2.0f);
    node->setradiusy(1.2f);
    frame();
    frame();
    const Bytes out = picture();
    ZuPersonTracker* face = tracker();
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(node->getRegion(), 0);
    ZuEnlargeEllipseMaterial* m = node->getMaterial();
    double a = 2.0 * face->leftEyeAxisDistance, b = 1.2 * face->leftEyeAxisDistance;
    ASSERT_GT(a, 8.0);
    EXPECT_NEAR(m->getRadius(), a, 1e-3);
    EXPECT_FLOAT_EQ(m->getPos()[0], person()->getFaceDataX(42));
    double focal = std::sqrt(a * a - b * b);
    EXPECT_NEAR(m->getPosR()[0] - m->getPos()[0], face->xAxis.x * focal, 1e-3);
    EXPECT_NEAR(m->getPosR()[1] - m->getPos()[1], face->xAxis.y * focal, 1e-3);

    Lens lens{m->getPos()[0],  m->getPos()[1],  m->getPosL()[0], m->getPosL()[1],
              m->getPosR()[0], m->getPosR()[1], m->getRadius(),  -0.5};
    Comparison c = compare(lens, source, out, a * 1.3);
    EXPECT_LE(c.worst, 2);
    EXPECT_GT(c.inside, 30);
    EXPECT_GT(c.outside, 30);
}

// On the portrait, the big-eye lens grows the iris by the factor the
// formula gives, 1 / (1 - intensity * o): the scale at which the source's
// rows and columns through the pupil best match the result's, over the
// iris and its rim, against the formula's factor at the iris edge.
TEST_F(LensTest, BigEyesGrowTheIrisByTheFormulasFactor) {
    const Bytes source = picture();
    const float intensity = 0.35f, radiusFactor = 1.0f;
    ZuCircleDistortionNode* left = circle(13, intensity, radiusFactor);
    auto* right = addNode<ZuCircleDistortionNode>("ZuCircleDistortionNode", "s_lens_0_8");
    ASSERT_NE(left, nullptr);
    ASSERT_NE(right, nullptr);
    right->setbindIndex(32);
    right->setintensity(intensity);
    right->setradius(radiusFactor);
    frame();
    frame();
    const Bytes out = picture();
    auto lumaLinear = [&](double x, double y) {
        double rgb[3];
        sampleLinear(source, x / kSize, y / kSize, rgb);
        return 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
    };
    const int reach = 7;  // the iris and a little of the white around it
    for (ZuCircleDistortionNode* node : {left, right}) {
        const float* c = node->getMaterial()->getCentralPos();
        double radius = node->getMaterial()->getRadius();
        double bestScale = 0, bestError = 1e18;
        for (double scale = 0.8; scale <= 2.2; scale += 0.01) {
            double error = 0;
            for (int k = -reach; k <= reach; ++k) {
                // Pixel centres of the result's row and column through the pupil.
                int px = static_cast<int>(std::floor(c[0])) + k, py = static_cast<int>(std::floor(c[1])) + k;
                double ox = px + 0.5 - c[0], oy = py + 0.5 - c[1];
                double row = luma(out, px, static_cast<int>(std::floor(c[1]))) -
                             lumaLinear(c[0] + ox / scale, std::floor(c[1]) + 0.5);
                double column = luma(out, static_cast<int>(std::floor(c[0])), py) -
                                lumaLinear(std::floor(c[0]) + 0.5, c[1] + oy / scale);
                error += row * row + column * column;
            }
            if (error < bestError) bestError = error, bestScale = scale;
        }
        double l = 4.0 / radius, o = 1 - l;  // the iris edge, about 4 pixels out
        o = o * o * (3 - 2 * o);
        double expected = 1.0 / (1.0 - intensity * o);
        std::cout << "iris grew " << bestScale << " times (lens " << radius << " px), formula " << expected << "\n";
        EXPECT_NEAR(bestScale, expected, 0.08 * expected);
    }
}

// Bad sizes draw nothing wrong: a lens of radius 0 leaves the picture as it
// was, one far larger than the picture gives finite colours everywhere, and
// intensity 0 is the camera frame.
TEST_F(LensTest, ZeroHugeAndNeutralLensesKeepThePictureSound) {
    const Bytes source = picture();
    ZuCircleDistortionNode* node = circle(13, 0.8f, 0.0f);
    ASSERT_NE(node, nullptr);
    frame();
    EXPECT_EQ(picture(), source);
    {
        LogCapture log;
        node->setradius(-3.0f);
        EXPECT_EQ(log.count("not a size"), 1);
    }
    frame();
    EXPECT_EQ(picture(), source);
    node->setradius(1000.0f);  // far larger than the 512-pixel picture
    frame();
    const Bytes huge = picture();
    // The whole picture lies deep inside: everything is pulled towards the
    // eye, as the formula says, corners included.
    const float* c = node->getMaterial()->getCentralPos();
    Lens lens{c[0], c[1], c[0], c[1], c[0], c[1], node->getMaterial()->getRadius(), 0.8};
    Comparison all = compare(lens, source, huge, kSize);
    EXPECT_LE(all.worst, 2);
    EXPECT_EQ(all.outside, 0);
    EXPECT_GT(all.inside, 20000);
    node->setradius(1.0f);
    node->setintensity(0.0f);
    frame();
    EXPECT_EQ(picture(), source);
}

// A lost face stops the pass without losing the picture; the strength
// event of the node's resource changes the intensity.
TEST_F(LensTest, LensNeedsAFaceAndTakesItsStrengthFromTheEvent) {
    const Bytes source = picture();
    ZuCircleDistortionNode* node = circle(13, 0.0f, 1.0f);
    ASSERT_NE(node, nullptr);
    frame();
    EXPECT_EQ(picture(), source);
    host->updateIntensity("s_lens", kResUID, 0.5f);
    frame();
    frame();
    EXPECT_FLOAT_EQ(node->getintensity(), 0.5f);
    EXPECT_NE(picture(), source);
    host->updateIntensity("s_lens", kResUID + 1, 0.1f);  // another package
    frame();
    EXPECT_FLOAT_EQ(node->getintensity(), 0.5f);
    frame(false);
    frame(false);
    // The camera frame of this tick, untouched.
    EXPECT_EQ(picture(), source);
}

// The item: nearly equal radii make a round lens, others an oval one;
// "index" counts tenths of a landmark; broken items are skipped with a log.
TEST_F(LensTest, ItemPicksTheLensAndRefusesBrokenEntries) {
    auto round = parse(R"({"type":"distortion","id":"e","index":"130","intensity":"0.3","radius_x":"1.0","radius_y":"1.005"})");
    ASSERT_TRUE(round);
    EXPECT_TRUE(round->isCircle());
    EXPECT_EQ(round->bindIndex, 13);
    auto oval = parse(R"({"type":"distortion","id":"e","index":"9","intensity":"0.3","radius_x":"1.0","radius_y":"1.02"})");
    ASSERT_TRUE(oval);
    EXPECT_FALSE(oval->isCircle());
    EXPECT_EQ(oval->bindIndex, 0);

    oval->personID = 2;
    oval->generate(kResUID, kScene, nullptr);
    ASSERT_EQ(oval->getNodes().size(), 1u);
    auto* made = dynamic_cast<ZuEllipseDistortionNode*>(oval->getNodes()[0]);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getpersonID(), 2);
    EXPECT_FLOAT_EQ(made->getradiusy(), 1.02f);
    round->generate(kResUID, kScene, nullptr);
    EXPECT_EQ(round->getNodes().size(), 4u);  // no person id: one per person

    LogCapture log;
    EXPECT_FALSE(parse(R"({"type":"distortion","id":"bad","index":"130","intensity":"strong","radius_x":"1","radius_y":"1"})"));
    EXPECT_FALSE(parse(R"({"type":"distortion","id":"bad","index":"130","intensity":"1"})"));
    EXPECT_FALSE(parse(R"({"type":"distortion","id":"bad","index":"900","intensity":"1","radius_x":"1","radius_y":"1"})"));
    EXPECT_EQ(log.count("distortion skipped"), 3);
}
