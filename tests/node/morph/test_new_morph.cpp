// The landmark morph on the sample portrait's AS face: the rules move the
// vertices they list towards their lines, and the picture follows.
#include "node/morph/ZuFaceNewMorphNode.h"
#include "node/morph/ZuNewMorphData.h"
#include "support/LogCapture.h"
#include "support/PhotoSceneFixture.h"

#include <iostream>

using namespace photoscene;

namespace {

class NewMorphTest : public PhotoSceneFixture {
protected:
    std::vector<std::string> resourceRoots() const override { return {sourceAssets()}; }
    void SetUp() override {
        PhotoSceneFixture::SetUp();
        useGridPicture();
        frame();
        source = picture();
        node = addNode<ZuFaceNewMorphNode>("ZuFaceNewMorphNode", "s_newmorph_0_7", 0);
        ASSERT_NE(node, nullptr);
        frame();
    }
    // Vertex v in picture pixels, moved or resting.
    void pixelOf(int v, bool movedOne, double& x, double& y) const {
        const float* p = movedOne ? node->getMovedVertices() : nullptr;
        if (movedOne) {
            x = (p[v * 2] + 1) * 0.5 * kSize, y = (p[v * 2 + 1] + 1) * 0.5 * kSize;
        } else {
            x = node->getTexcoords()[v * 2] * kSize, y = node->getTexcoords()[v * 2 + 1] * kSize;
        }
    }
    Bytes source;
    ZuFaceNewMorphNode* node = nullptr;
};

} // namespace

// With the default rules at strength 0 the mesh lies on the face and the
// picture is the camera frame; the vertices sit on the landmarks, the
// inner lips on landmark 93 and the ring outside the contour.
TEST_F(NewMorphTest, DefaultRulesAtRestLeaveThePictureAndLieOnTheFace) {
    ASSERT_TRUE(node->hasTriangles());
    ASSERT_EQ(node->getNewMorphCount(), 5);
    EXPECT_TRUE(node->isDrawn());
    const Bytes out = picture();
    int worst = 0;
    for (size_t i = 0; i < out.size(); ++i) worst = std::max(worst, std::abs(out[i] - source[i]));
    EXPECT_LE(worst, 1);
    ZuPerson* face = person();
    double x, y;
    pixelOf(40, true, x, y);
    EXPECT_NEAR(x, face->getFaceDataX(40), 1e-3);
    EXPECT_NEAR(y, face->getFaceDataY(40), 1e-3);
    pixelOf(88, true, x, y);
    EXPECT_NEAR(x, face->getFaceDataX(93), 1e-3);
    pixelOf(109 + 4, true, x, y);
    EXPECT_NEAR(x, face->getFaceDataX(4) * 1.3 - face->getFaceDataX(97) * 0.3, 1e-3);
}

// Slimming moves each cheek's contour inwards, more with strength, and the
// picture there shows what lay at the resting contour; the ring stays.
TEST_F(NewMorphTest, SlimPullsBothCheeksInwardsAndThePictureFollows) {
    double previous = 0;
    for (float strength : {0.1f, 0.25f, 0.4f}) {
        node->setNewSlimStrength(strength);
        frame();
        const Bytes out = picture();
        double leftX, rightX, restLeft, restRight, y;
        pixelOf(4, true, leftX, y);
        pixelOf(4, false, restLeft, y);
        pixelOf(14, true, rightX, y);
        pixelOf(14, false, restRight, y);
        double inward = (leftX - restLeft) + (restRight - rightX);
        std::cout << "slim " << strength << ": cheeks in by " << leftX - restLeft << " and " << restRight - rightX
                  << " px\n";
        EXPECT_GT(leftX - restLeft, 0.5);
        EXPECT_GT(restRight - rightX, 0.5);
        EXPECT_GT(inward, previous);
        previous = inward;
        // The moved contour point shows the source at its resting place.
        double mx, my, rx, ry;
        pixelOf(5, true, mx, my);
        pixelOf(5, false, rx, ry);
        double got[3], want[3];
        sampleLinear(out, mx / kSize, my / kSize, got);
        sampleLinear(source, rx / kSize, ry / kSize, want);
        for (int c = 0; c < 3; ++c) EXPECT_NEAR(got[c], want[c], 10.0);
        // Corners untouched.
        for (int c = 0; c < 4; ++c) EXPECT_EQ(at(out, 0, 0, c), at(source, 0, 0, c));
        double ringX, ringRest;
        pixelOf(109 + 4, true, ringX, y);
        pixelOf(109 + 4, false, ringRest, y);
        EXPECT_EQ(ringX, ringRest);
    }
    node->setNewSlimStrength(0.0f);
    frame();
    int worst = 0;
    const Bytes out = picture();
    for (size_t i = 0; i < out.size(); ++i) worst = std::max(worst, std::abs(out[i] - source[i]));
    EXPECT_LE(worst, 1);
}

// Strength 1 puts a point on its line, also on upright and level lines
// (no division by zero); an adaptive rule leaves a point that already lies
// close to a long line alone; the strength event reaches the slim rules.
TEST_F(NewMorphTest, RulesReachTheirLinesAndAdaptiveRulesSpareNarrowParts) {
    int32_t cheek[] = {4};
    ZuNewMorphData rules[3];
    rules[0].startIndex = 97, rules[0].endIndex = 100;  // the nose's middle line, nearly upright
    rules[0].setIndices(cheek, 1);
    rules[0].strength = 1.0f;
    int32_t chin[] = {9};
    rules[1].startIndex = 75, rules[1].endIndex = 75;  // a line of no length: upright through 75
    rules[1].setIndices(chin, 1);
    rules[1].strength = 1.0f;
    int32_t corner[] = {39};
    rules[2].startIndex = 0, rules[2].endIndex = 18;  // the line across the face, far longer than 39 is off it
    rules[2].setIndices(corner, 1);
    rules[2].strength = 1.0f;
    rules[2].adaptive = true;
    ASSERT_TRUE(node->setNewMorphData(rules, 3));
    frame();
    ZuPerson* face = person();
    double x, y;
    pixelOf(4, true, x, y);
    // On the line from 97 to 100.
    double ax = face->getFaceDataX(97), ay = face->getFaceDataY(97);
    double bx = face->getFaceDataX(100), by = face->getFaceDataY(100);
    double cross = (bx - ax) * (y - ay) - (by - ay) * (x - ax);
    EXPECT_NEAR(cross / std::hypot(bx - ax, by - ay), 0.0, 0.05);
    pixelOf(9, true, x, y);
    EXPECT_NEAR(x, face->getFaceDataX(75), 1e-3);
    EXPECT_NEAR(y, face->getFaceDataY(9), 1e-3);
    double length = std::fabs(face->getFaceDataX(18) - face->getFaceDataX(0)) +
                    std::fabs(face->getFaceDataY(18) - face->getFaceDataY(0));
    pixelOf(39, true, x, y);
    double rx, ry;
    pixelOf(39, false, rx, ry);
    std::cout << "adaptive: line " << length << " px against the eye corner's distance\n";
    EXPECT_EQ(x, rx);
    EXPECT_EQ(y, ry);

    host->updateSlimStrength("s_newmorph", kResUID, 0.3f);
    frame();
    frame();
    EXPECT_FLOAT_EQ(node->getNewMorphData()[0].strength, 0.3f);
    EXPECT_FLOAT_EQ(node->getNewMorphData()[1].strength, 0.3f);
    EXPECT_FLOAT_EQ(node->getNewMorphData()[2].strength, 1.0f);
}

// Rule lists naming vertices outside 0..127 are refused whole with a log
// line and the list before stays; a lost face draws nothing.
TEST_F(NewMorphTest, BadRuleListsAreRefusedAndALostFaceDrawsNothing) {
    int32_t bad[] = {4, 128};
    ZuNewMorphData rule;
    rule.startIndex = 97, rule.endIndex = 100;
    rule.setIndices(bad, 2);
    rule.strength = 1.0f;
    {
        LogCapture log;
        EXPECT_FALSE(node->setNewMorphData(&rule, 1));
        rule.setIndices(bad, 1);
        rule.endIndex = -1;
        EXPECT_FALSE(node->setNewMorphData(&rule, 1));
        EXPECT_EQ(log.count("outside 0..127"), 2);
    }
    EXPECT_EQ(node->getNewMorphCount(), 5);
    node->setNewShortStrength(0.5f);
    frame(false);
    EXPECT_FALSE(node->isDrawn());
    EXPECT_EQ(picture(), source);
}
