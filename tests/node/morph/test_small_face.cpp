// The small-face warps on a face whose contour is painted: white inside the
// tracked jaw line, black outside, so the jaw's width on a row is a count of
// white pixels. The warp narrows it more the higher the level, widens it when
// fat, and never touches the picture's corners.
#include "node/mask/FacePhotoFixture.h"
#include "node/morph/ZuSmallFaceNode.h"
#include "node/morph/ZuSmallFaceWarpMaterial.h"

#include <cmath>

namespace {

class SmallFaceTest : public FacePhotoFixture {
protected:
    void SetUp() override {
        FacePhotoFixture::SetUp();
        // The contour (ST 0-32, wire y from the top) closed across the ears.
        const std::vector<float>& xy = faces[0].xy;
        for (size_t i = 0; i < photo.size(); i += 4) photo[i] = photo[i + 1] = photo[i + 2] = 0;
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                bool inside = false;
                for (int i = 0, j = 32; i <= 32; j = i++) {
                    const float xi = xy[i * 2], yi = xy[i * 2 + 1], xj = xy[j * 2], yj = xy[j * 2 + 1];
                    if ((yi > y + 0.5f) != (yj > y + 0.5f) && x + 0.5f < (xj - xi) * (y + 0.5f - yi) / (yj - yi) + xi)
                        inside = !inside;
                }
                if (inside) std::memset(&photo[(static_cast<size_t>(y) * kSize + x) * 4], 255, 3);
            }
        frame();
        plain = picture();
        // The jaw row: landmark 10 (engine rows count from the bottom).
        jawRow = static_cast<int>(std::lround(kSize - xy[10 * 2 + 1]));
    }
    int widthOn(const Bytes& pic, int row) const {
        int n = 0;
        for (int x = 0; x < kSize; ++x) n += pic[(static_cast<size_t>(row) * kSize + x) * 4] > 127;
        return n;
    }
    bool cornersEqual(const Bytes& pic) const {
        for (int cy : {0, kSize - 16})
            for (int cx : {0, kSize - 16})
                for (int y = cy; y < cy + 16; ++y)
                    if (std::memcmp(&pic[(static_cast<size_t>(y) * kSize + cx) * 4],
                                    &plain[(static_cast<size_t>(y) * kSize + cx) * 4], 16 * 4) != 0)
                        return false;
        return true;
    }
    Bytes plain;
    int jawRow = 0;
};

} // namespace

TEST_F(SmallFaceTest, JawNarrowsWithLevelWidensWhenFatAndCornersStay) {
    auto* node = addNode<ZuSmallFaceNode>("ZuSmallFaceNode", "slim", 1);
    ASSERT_NE(node, nullptr);
    const int before = widthOn(plain, jawRow);
    ASSERT_GT(before, 40) << "the painted jaw is on the row";

    node->setSmallLevel(0.0f);
    frame();
    EXPECT_EQ(picture(), plain) << "level 0 has no radius";

    int last = before;
    for (float level : {1.0f, 2.0f, 3.0f}) {
        node->setSmallLevel(level);
        frame();
        const Bytes pic = picture();
        dump(pic, "small_face_level_" + std::to_string(static_cast<int>(level)));
        const int width = widthOn(pic, jawRow);
        std::printf("small face level %.1f: jaw %d -> %d pixels\n", level, before, width);
        EXPECT_LT(width, last) << "level " << level;
        EXPECT_TRUE(cornersEqual(pic)) << "level " << level;
        last = width;
    }
    EXPECT_LE(last, before - 6) << "level 3 takes pixels off the jaw";

    node->setIsSmall(false);
    frame();
    EXPECT_GT(widthOn(picture(), jawRow), before) << "fat pushes the jaw out";

}

TEST_F(SmallFaceTest, EveryWarpOfTheFamilyChangesTheFaceOnlyWithAFace) {
    for (const char* type : {"ZuSmallShortFaceNode", "ZuKejiSmallShortFaceNode", "ZuPigFaceNode", "ZuSmallShrinkFaceNode",
                             "ZuSmallShortShrinkNode", "ZuSmallFaceNode"}) {
        SCOPED_TRACE(type);
        auto* node = addNode<ZuSmallFaceWarpNode>(type, type, 1);
        ASSERT_NE(node, nullptr);
        node->setSmallLevel(1.5f);
        frame();
        const Bytes pic = picture();
        EXPECT_TRUE(node->isWarping());
        EXPECT_NE(pic, plain);
        EXPECT_TRUE(cornersEqual(pic));
        scene->removeChild(node);
        frame();
    }
    // Without a face nothing is drawn.
    auto* node = addNode<ZuSmallFaceWarpNode>("ZuSmallFaceNode", "alone", 1);
    ASSERT_NE(node, nullptr);
    static const uint8_t kNoFaces[4] = {0, 0, 0, 0};
    record.assign(kNoFaces, kNoFaces + 4);
    for (int i = 0; i < 20 && person(1)->getExist(); ++i) frame();
    ASSERT_FALSE(person(1)->getExist());
    frame();
    EXPECT_FALSE(node->isWarping());
    EXPECT_EQ(picture(), plain);
}
