// The face swap on the two-face photo (the sample portrait beside its mirror
// image with the colour channels turned): each face region takes the other
// face's pixels, the border fades into the camera picture, and with one face
// the frame is the plain camera picture.
#include "node/mask/FacePhotoFixture.h"
#include "node/mask/ZuSwapFaceSTNode.h"
#include "parse/ZuParseSwapFace.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>

namespace {

struct Box {
    double x0, y0, x1, y1;
};

class SwapFaceTest : public FacePhotoFixture {
protected:
    const char* photoFile() const override { return "photos/two_faces.png"; }
    const char* recordFile() const override { return "faces/two_faces.st.rec"; }

    void SetUp() override {
        FacePhotoFixture::SetUp();
        ASSERT_EQ(faces.size(), 2u);
        frame();
        plain = picture();
    }
    // The middle of eyes, nose and mouth of a person (ST 52-103), in engine
    // pixels: the box's central 60 percent, where the soft mask is opaque.
    Box innerFace(int id) {
        const float* f = person(id)->getFaceData();
        Box b{1e9, 1e9, -1e9, -1e9};
        for (int i = 52; i <= 103; ++i) {
            b.x0 = std::min<double>(b.x0, f[i * 2]), b.x1 = std::max<double>(b.x1, f[i * 2]);
            b.y0 = std::min<double>(b.y0, f[i * 2 + 1]), b.y1 = std::max<double>(b.y1, f[i * 2 + 1]);
        }
        const double w = b.x1 - b.x0, h = b.y1 - b.y0;
        return {b.x0 + 0.2 * w, b.y0 + 0.2 * h, b.x1 - 0.2 * w, b.y1 - 0.2 * h};
    }
    static const uint8_t* at(const Bytes& pic, double x, double y) {
        const int px = std::min(std::max(static_cast<int>(x), 0), kSize - 1);
        const int py = std::min(std::max(static_cast<int>(y), 0), kSize - 1);
        return &pic[(static_cast<size_t>(py) * kSize + px) * 4];
    }
    // Correlation over the RGB values of box a in picture p and the same
    // relative places of box b in picture q.
    static double correlation(const Bytes& p, const Box& a, const Bytes& q, const Box& b) {
        std::vector<double> u, v;
        for (int j = 0; j < 24; ++j)
            for (int i = 0; i < 24; ++i) {
                const double s = (i + 0.5) / 24, t = (j + 0.5) / 24;
                const uint8_t* x = at(p, a.x0 + s * (a.x1 - a.x0), a.y0 + t * (a.y1 - a.y0));
                const uint8_t* y = at(q, b.x0 + s * (b.x1 - b.x0), b.y0 + t * (b.y1 - b.y0));
                for (int c = 0; c < 3; ++c) u.push_back(x[c]), v.push_back(y[c]);
            }
        double mu = 0, mv = 0;
        for (size_t k = 0; k < u.size(); ++k) mu += u[k], mv += v[k];
        mu /= u.size(), mv /= v.size();
        double suv = 0, suu = 0, svv = 0;
        for (size_t k = 0; k < u.size(); ++k)
            suv += (u[k] - mu) * (v[k] - mv), suu += (u[k] - mu) * (u[k] - mu), svv += (v[k] - mv) * (v[k] - mv);
        return suv / std::sqrt(suu * svv);
    }
    Bytes plain;
};

} // namespace

TEST_F(SwapFaceTest, EachFaceShowsTheOtherWithSoftBorders) {
    auto* node = addNode<ZuSwapFaceSTNode>("ZuSwapFaceSTNode", "swap", 0);
    ASSERT_NE(node, nullptr);
    node->initMesh();
    ASSERT_EQ(node->getPointCount(), 207) << "landmarks, forehead, lips and outline; no corners";
    frame();
    frame();
    ASSERT_TRUE(node->isSwapping());
    const Bytes out = picture();
    dump(out, "swap_two_faces");
    const Box one = innerFace(1), two = innerFace(2);
    const double oneFromTwo = correlation(out, one, plain, two), oneFromOne = correlation(out, one, plain, one);
    const double twoFromOne = correlation(out, two, plain, one), twoFromTwo = correlation(out, two, plain, two);
    std::printf("face 1 region: correlation with face 2 %.3f, with itself %.3f; face 2: %.3f / %.3f\n", oneFromTwo,
                oneFromOne, twoFromOne, twoFromTwo);
    EXPECT_GT(oneFromTwo, oneFromOne + 0.3);
    EXPECT_GT(twoFromOne, twoFromTwo + 0.3);
    EXPECT_GT(oneFromTwo, 0.6);
    EXPECT_GT(twoFromOne, 0.6);

    // From the nose out to the jaw contour the change fades: large at the
    // nose, gone at the contour, in between on the way.
    for (int id : {1, 2}) {
        const float* f = person(id)->getFaceData();
        std::vector<int> diff;
        for (int k = 0; k <= 20; ++k) {
            const double t = k / 20.0;
            const double x = f[49 * 2] + t * (f[6 * 2] - f[49 * 2]), y = f[49 * 2 + 1] + t * (f[6 * 2 + 1] - f[49 * 2 + 1]);
            const uint8_t *a = at(out, x, y), *b = at(plain, x, y);
            diff.push_back(std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]));
        }
        const int peak = *std::max_element(diff.begin(), diff.begin() + 6);
        EXPECT_GT(peak, 60) << "person " << id;
        EXPECT_LT(diff.back(), 15) << "person " << id << ": the contour stays the camera's";
        const int between = static_cast<int>(std::count_if(diff.begin(), diff.end(), [&](int d) {
            return d > 0.15 * peak && d < 0.75 * peak;
        }));
        EXPECT_GE(between, 2) << "person " << id << ": no soft border";
    }
    // The rest of the frame is the camera's.
    EXPECT_EQ(0, std::memcmp(at(out, 0, 0), at(plain, 0, 0), 4 * 40));

    // One face: the plain camera picture.
    faces.pop_back();
    record = stRecord(faces);
    for (int i = 0; i < 20 && person(2) && person(2)->getExist(); ++i) frame();
    frame();
    EXPECT_FALSE(node->isSwapping());
    EXPECT_EQ(picture(), plain) << "a lone face is not swapped";
}

TEST_F(SwapFaceTest, ItemMakesTheNodeOnlyOnAS) {
    rapidjson::Document item;
    item.Parse(R"({"type":"swapface","id":"swap"})");
    ZuParseData* data = ZuParseSwapFace::parseSwapFace(app, item, 9, kScene, "");
    ASSERT_NE(data, nullptr);
    data->generate(9, kScene, const_cast<char*>(""));
    EXPECT_EQ(nodes->getNode("m_swap_0_9"), nullptr) << "ST makes no node from the item";
    data->release();
    config->setDetectType(DETECTTYPE_AS);
    data = ZuParseSwapFace::parseSwapFace(app, item, 9, kScene, "");
    data->generate(9, kScene, const_cast<char*>(""));
    auto* node = dynamic_cast<ZuSwapFaceNode*>(nodes->getNode("m_swap_0_9"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getPointCount(), 101 + 8 + 60 + 19);
    data->release();
}
