// Skin smoothing, whitening and the eye warp on a real portrait, driven as a
// host drives the engine: the photo goes in as an RGBA camera frame, the face
// as the committed FP record, strengths through the facade. The smoothing
// result is checked against a reference computed here, in doubles, from the
// documented formulas; the neighbours come from the frame the pass samples
// (the scene's picture without the node), filtered bilinearly as GL_LINEAR.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "node/beauty/ZuBeautyMaterial.h"
#include "node/beauty/ZuBeautyNode.h"
#include "node/beauty/ZuFaceBeautifyExpand01Node.h"
#include "node/beauty/ZuFaceBuffingWhiteMaterial.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuPngLoader.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/LogCapture.h"
#include "support/PhotoSceneFixture.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace {

// The photo, the camera and the scene are all kSize square.
using photoscene::Bytes;
using photoscene::kResUID;
using photoscene::kScene;
using photoscene::kSize;
using photoscene::luma;
using photoscene::readFile;

// ------------------------------------------------------------ the picture

// RGB in 0..1 of a w x h picture, row 0 at the bottom as GL reads it back.
struct Picture {
    int w = 0, h = 0;
    std::vector<double> rgb;
    Picture() = default;
    explicit Picture(const Bytes& rgba, int w, int h) : w(w), h(h), rgb(static_cast<size_t>(w) * h * 3) {
        for (size_t i = 0; i < static_cast<size_t>(w) * h; ++i)
            for (int c = 0; c < 3; ++c) rgb[i * 3 + c] = rgba[i * 4 + c] / 255.0;
    }
    const double* at(int x, int y) const {
        x = std::min(std::max(x, 0), w - 1);
        y = std::min(std::max(y, 0), h - 1);
        return &rgb[(static_cast<size_t>(y) * w + x) * 3];
    }
    // GL_LINEAR at a texture coordinate, edges clamped.
    void sample(double u, double v, double out[3]) const {
        double x = u * w - 0.5, y = v * h - 0.5;
        int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
        double fx = x - x0, fy = y - y0;
        const double *a = at(x0, y0), *b = at(x0 + 1, y0), *c = at(x0, y0 + 1), *d = at(x0 + 1, y0 + 1);
        for (int k = 0; k < 3; ++k)
            out[k] = (a[k] * (1 - fx) + b[k] * fx) * (1 - fy) + (c[k] * (1 - fx) + d[k] * fx) * fy;
    }
};

// ------------------------------------------------------ the reference pass

double hueOf(const double c[3]) {
    double mx = std::max(std::max(c[0], c[1]), c[2]), mn = std::min(std::min(c[0], c[1]), c[2]);
    double chroma = mx - mn;
    if (chroma <= 0.0) return 0.0;
    double h;
    if (mx == c[0]) h = (c[1] - c[2]) / chroma / 6.0;
    else if (mx == c[1]) h = ((c[2] - c[0]) / chroma + 2.0) / 6.0;
    else h = ((c[0] - c[1]) / chroma + 4.0) / 6.0;
    return h < 0.0 ? h + 1.0 : h;
}

struct Tap {
    double dx, dy, weight;
};

// One smoothing quality: its bilateral taps and constants.
struct Variant {
    int type;
    double radio, lambda;
    bool faceGate;       // skin gate from the person's own hue, else a fixed hue band
    bool whitenByAlpha;  // whitening follows the luminance
    std::vector<Tap> taps;
};

std::vector<Tap> ring8(double w) {
    return {{5, 8, w}, {-5, 8, w}, {5, -8, w}, {-5, -8, w}, {8, 5, w}, {-8, 5, w}, {8, -5, w}, {-8, -5, w}};
}
std::vector<Tap> cross4(double w) { return {{10, 0, w}, {-10, 0, w}, {0, 10, w}, {0, -10, w}}; }
std::vector<Tap> join(std::vector<Tap> a, const std::vector<Tap>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Variant variantOf(int type) {
    switch (type) {
    case 1:
        return {1, 5.0, 0.8, false, true,
                {{0, 10, 0.6065}, {7.07, -5, 0.6065}, {-7.07, -5, 0.6065},
                 {0, -12, 0.4868}, {9.898, 6, 0.4868}, {-9.898, 6, 0.4868}}};
    case 2: return {2, 5.5, 0.8, false, true, ring8(0.5296)};
    case 3: return {3, 6.0, 0.7, false, true, join(ring8(0.6408), cross4(0.6065))};
    case 4:
        return {4, 3.0, 0.7, true, true,
                {{0, -8, 0.8521}, {5.656, 4, 0.8521}, {-5.656, 4, 0.8521},
                 {0, 10, 0.6977}, {7.07, -5, 0.6977}, {-7.07, -5, 0.6977}}};
    case 5: return {5, 5.5, 0.8, true, true, ring8(0.5296)};
    default: return {6, 6.0, 0.8, true, false, join(ring8(0.5296), cross4(0.4895))};
    }
}

// What a pass must write at pixel (x, y): gated tells whether the skin gate
// lets the blur in (the caller decides, so that it can try both sides of a
// gate boundary that rounding may cross).
struct PassInput {
    const Picture* source;
    double stepX, stepY;  // one offset unit in texture coordinates
    double smooth, white; // the values the parameter maps store
};

void buffingReference(const Variant& v, const PassInput& in, int x, int y, bool gated, double out[3]) {
    const double* c = in.source->at(x, y);
    double u = (x + 0.5) / in.source->w, t = (y + 0.5) / in.source->h;
    double mx = std::max(std::max(c[0], c[1]), c[2]), mn = std::min(std::min(c[0], c[1]), c[2]);
    double alpha = std::pow(0.5 * (mx + mn), 0.8);
    double s[3] = {c[0], c[1], c[2]};
    if (gated) {
        double sum[3] = {c[0], c[1], c[2]}, total[3] = {1, 1, 1};
        for (const Tap& tap : v.taps) {
            double n[3];
            in.source->sample(u + tap.dx * in.stepX, t + tap.dy * in.stepY, n);
            for (int k = 0; k < 3; ++k) {
                double w = tap.weight * std::max(1.0 - std::fabs(c[k] - n[k]) * v.radio, 0.0);
                sum[k] += n[k] * w;
                total[k] += w;
            }
        }
        for (int k = 0; k < 3; ++k) {
            double blurred = sum[k] / total[k];
            blurred = std::max(blurred, 2.2 * blurred - 1.2 * c[k]);
            s[k] = c[k] + (blurred - c[k]) * alpha * in.smooth;
        }
    }
    double whiten = v.whitenByAlpha ? alpha * in.white : in.white;
    for (int k = 0; k < 3; ++k) {
        double lifted = std::pow(std::max(s[k], 0.0), v.lambda);
        out[k] = s[k] + (lifted - s[k]) * whiten;
    }
}

// The green-channel soften of quality 0; strength is its "softenStrength".
void softenReference(const Picture& source, double imageW, double imageH, double strength, int x, int y,
                     double out[3]) {
    static const double offsets[12][2] = {{0, -10}, {5, -8}, {8, -5},  {10, 0},  {8, 5},    {5, 8},
                                          {0, 10},  {-5, 8}, {-8, 5}, {-10, 0}, {-8, -5}, {-5, -8}};
    const double* c = source.at(x, y);
    double u = (x + 0.5) / source.w, t = (y + 0.5) / source.h;
    double central = c[1], total = 0.2, sum = central * 0.2;
    for (const auto& o : offsets) {
        double n[3];
        source.sample(u + o[0] * 1.6 / imageW, t + o[1] * 1.6 / imageH, n);
        double w = 0.08 * (1.0 - std::min(std::fabs(central - n[1]) * 3.6, 1.0));
        sum += n[1] * w;
        total += w;
    }
    sum /= total;
    double h = c[1] - sum + 0.5;
    for (int i = 0; i < 5; ++i) h = h <= 0.5 ? 2 * h * h : 1 - 2 * (1 - h) * (1 - h);
    double aa = 1 + std::pow(sum, 0.3) * 0.07;
    for (int k = 0; k < 3; ++k) {
        double smoothed = std::min(std::max(c[k] * aa - h * (aa - 1), 0.0), 1.0);
        smoothed = c[k] + (smoothed - c[k]) * std::pow(c[1], 0.33);
        smoothed = c[k] + (smoothed - c[k]) * std::pow(c[1], 0.39);
        smoothed = c[k] + (smoothed - c[k]) * strength;
        out[k] = std::pow(smoothed, 0.96);
    }
}

// ---------------------------------------------------------------- measures

struct Box {
    int x0, y0, x1, y1;  // inclusive, engine pixels (y up)
};

Box boxAround(double cx, double cy, int half) {
    int x = static_cast<int>(std::lround(cx)), y = static_cast<int>(std::lround(cy));
    return {x - half, y - half, x + half, y + half};
}

// Fine texture: mean absolute 4-neighbour Laplacian of luma.
double textureOf(const Bytes& rgba, const Box& b) {
    double sum = 0;
    int n = 0;
    for (int y = b.y0; y <= b.y1; ++y)
        for (int x = b.x0; x <= b.x1; ++x) {
            sum += std::fabs(4 * luma(rgba, x, y) - luma(rgba, x - 1, y) - luma(rgba, x + 1, y) -
                             luma(rgba, x, y - 1) - luma(rgba, x, y + 1));
            ++n;
        }
    return sum / n;
}

// Edge energy: mean squared Sobel magnitude of luma.
double edgeEnergyOf(const Bytes& rgba, const Box& b) {
    double sum = 0;
    int n = 0;
    for (int y = b.y0; y <= b.y1; ++y)
        for (int x = b.x0; x <= b.x1; ++x) {
            auto l = [&](int dx, int dy) { return luma(rgba, x + dx, y + dy); };
            double gx = l(1, -1) + 2 * l(1, 0) + l(1, 1) - l(-1, -1) - 2 * l(-1, 0) - l(-1, 1);
            double gy = l(-1, 1) + 2 * l(0, 1) + l(1, 1) - l(-1, -1) - 2 * l(0, -1) - l(1, -1);
            sum += gx * gx + gy * gy;
            ++n;
        }
    return sum / n;
}

// Dark spots: how far a pixel lies below the mean of its 7 x 7
// neighbourhood, averaged (pixels above it count 0).
double darkSpotDepthOf(const Bytes& rgba, const Box& b) {
    double sum = 0;
    int n = 0;
    for (int y = b.y0; y <= b.y1; ++y)
        for (int x = b.x0; x <= b.x1; ++x, ++n) {
            double local = 0;
            for (int dy = -3; dy <= 3; ++dy)
                for (int dx = -3; dx <= 3; ++dx) local += luma(rgba, x + dx, y + dy);
            sum += std::max(0.0, local / 49.0 - luma(rgba, x, y));
        }
    return sum / n;
}

double meanLuma(const Bytes& rgba, const Box& b) {
    double sum = 0;
    int n = 0;
    for (int y = b.y0; y <= b.y1; ++y)
        for (int x = b.x0; x <= b.x1; ++x, ++n) sum += luma(rgba, x, y);
    return sum / n;
}

// ------------------------------------------------------------ the fixture

// The 68 landmarks of the photo in engine pixels (y up).
struct Landmarks {
    double x[68] = {}, y[68] = {};
    double meanX(int from, int to) const {
        double s = 0;
        for (int i = from; i <= to; ++i) s += x[i];
        return s / (to - from + 1);
    }
    double meanY(int from, int to) const {
        double s = 0;
        for (int i = from; i <= to; ++i) s += y[i];
        return s / (to - from + 1);
    }
};

class BeautyPhotoTest : public photoscene::PhotoSceneFixture {
protected:
    const char* recordPath() const override { return QZ_SOURCE_DIR "/samples/faces/astronaut.fp.rec"; }
    DETECTTYPE detectType() const override { return DETECTTYPE_FP; }
    void beforeScene() override {
        // As a host on an ES 3 device reports it: the face-aware qualities.
        config->glversion = 0x30000;
        ASSERT_NO_FATAL_FAILURE(loadLandmarks());
    }
    void loadLandmarks() {
        Bytes text = readFile(QZ_SOURCE_DIR "/samples/faces/astronaut.landmarks.json");
        rapidjson::Document doc;
        doc.Parse(reinterpret_cast<const char*>(text.data()), text.size());
        ASSERT_FALSE(doc.HasParseError());
        const auto& points = doc["faces"][0]["landmarks68"];
        ASSERT_EQ(points.Size(), 68u);
        for (int i = 0; i < 68; ++i) {
            marks.x[i] = points[i][0].GetDouble();
            marks.y[i] = kSize - points[i][1].GetDouble();  // file: y down
        }
    }

    PassInput passInput(const Picture& source, double smoothSetting, double whiteSetting) const {
        // One step is 1/720 of the width, vertically in the design's aspect.
        double designW = config->getDesignWidth(), designH = config->getDesignHeight();
        return {&source, 1.0 / 720.0, 1.0 / (designH / designW * 720.0), 0.8 * smoothSetting,
                0.8 * whiteSetting + 0.2};
    }

    // Boxes placed from the landmarks.
    Box leftCheek() const {
        return boxAround(0.5 * (marks.x[3] + marks.x[31]), 0.5 * (marks.y[3] + marks.y[31]), 8);
    }
    Box rightCheek() const {
        return boxAround(0.5 * (marks.x[13] + marks.x[35]), 0.5 * (marks.y[13] + marks.y[35]), 8);
    }
    Box forehead() const { return boxAround(0.5 * (marks.x[21] + marks.x[22]), marks.y[21] + 10, 4); }
    // The landmarks from..to with a margin of 3 pixels.
    Box boundsOf(int from, int to) const {
        double x0 = 1e9, x1 = -1e9, y0 = 1e9, y1 = -1e9;
        for (int i = from; i <= to; ++i) {
            x0 = std::min(x0, marks.x[i]), x1 = std::max(x1, marks.x[i]);
            y0 = std::min(y0, marks.y[i]), y1 = std::max(y1, marks.y[i]);
        }
        return {static_cast<int>(x0) - 3, static_cast<int>(y0) - 3, static_cast<int>(x1) + 3,
                static_cast<int>(y1) + 3};
    }
    Box eyeBox(int from) const { return boundsOf(from, from + 5); }
    Box mouthBox() const { return boundsOf(48, 59); }
    static Box suit() { return {60, 120, 110, 170}; }        // the orange sleeve, lower left
    static Box background() { return {330, 420, 370, 460}; } // the grey wall, upper right

    Landmarks marks;
};

} // namespace

// The camera frame reaches the scene upright and unchanged, and the FP record
// puts the face where the landmarks say: the rest builds on both.
TEST_F(BeautyPhotoTest, PhotoAndFaceArriveAsTheHostSentThem) {
    Bytes scenePicture = picture();
    int worst = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            for (int c = 0; c < 3; ++c)
                worst = std::max(worst, std::abs(scenePicture[(static_cast<size_t>(y) * kSize + x) * 4 + c] -
                                                 photo[(static_cast<size_t>(kSize - 1 - y) * kSize + x) * 4 + c]));
    EXPECT_LE(worst, 1);
    ZuPersonTracker* face = tracker();
    ASSERT_NE(face, nullptr);
    EXPECT_NEAR(face->noseTip.x, marks.x[30], 3.0);
    EXPECT_NEAR(face->noseTip.y, marks.y[30], 3.0);
    EXPECT_NEAR(face->chin.y, marks.y[8], 3.0);
}

// Every quality against the reference at twenty places of the photo.
TEST_F(BeautyPhotoTest, EveryQualityMatchesTheReferenceOnThePhoto) {
    const Picture source(picture(), kSize, kSize);
    ZuPersonTracker* face = tracker();
    ASSERT_NE(face, nullptr);

    // The skin hue of the face-aware qualities: six cheek points between the
    // contour and the nose wings, filtered like the pass filters them.
    const ZuVec3* contour = face->contourPoints;
    const ZuVec3& wingL = contour[ZuPersonTracker::kContourCount + 2];
    const ZuVec3& wingR = contour[ZuPersonTracker::kContourCount + 3];
    struct Span {
        const ZuVec3 *from, *to;
        double share;
    } spans[6] = {{&contour[0], &wingL, 0.3}, {&contour[0], &wingL, 0.6}, {&contour[1], &wingR, 0.3},
                  {&contour[1], &wingR, 0.6}, {&contour[5], &wingR, 0.5}, {&contour[4], &wingL, 0.5}};
    double mean[3] = {0, 0, 0};
    for (const Span& s : spans) {
        double n[3];
        source.sample((s.from->x + s.share * (s.to->x - s.from->x)) / kSize,
                      (s.from->y + s.share * (s.to->y - s.from->y)) / kSize, n);
        for (int k = 0; k < 3; ++k) mean[k] += n[k] / 6.0;
    }
    const double hueFace = hueOf(mean);
    EXPECT_GT(hueFace, 0.0);
    EXPECT_LT(hueFace, 0.15);  // a skin tone, not the suit or the wall

    struct Place {
        const char* name;
        double x, y;
    };
    const std::vector<Place> places = {
        {"left cheek", 0.5 * (marks.x[3] + marks.x[31]), 0.5 * (marks.y[3] + marks.y[31])},
        {"right cheek", 0.5 * (marks.x[13] + marks.x[35]), 0.5 * (marks.y[13] + marks.y[35])},
        {"left cheek low", 0.5 * (marks.x[5] + marks.x[48]), 0.5 * (marks.y[5] + marks.y[48])},
        {"right cheek low", 0.5 * (marks.x[11] + marks.x[54]), 0.5 * (marks.y[11] + marks.y[54])},
        {"forehead", 0.5 * (marks.x[21] + marks.x[22]), marks.y[21] + 10},
        {"forehead left", marks.x[19], marks.y[19] + 8},
        {"left eye", marks.meanX(36, 41), marks.meanY(36, 41)},
        {"right eye", marks.meanX(42, 47), marks.meanY(42, 47)},
        {"left eye corner", marks.x[36], marks.y[36]},
        {"right eye corner", marks.x[45], marks.y[45]},
        {"mouth left", marks.x[48], marks.y[48]},
        {"mouth right", marks.x[54], marks.y[54]},
        {"upper lip", marks.x[51], marks.y[51]},
        {"lower lip", marks.x[57], marks.y[57]},
        {"teeth", marks.x[62], marks.y[62]},
        {"nose tip", marks.x[30], marks.y[30]},
        {"chin", marks.x[8], marks.y[8] + 4},
        {"wall", 350, 440},
        {"suit", 85, 145},
        {"flag", 30, 350},
    };

    for (int type = 0; type < 7; ++type) {
        config->faceBeautyType = type;
        std::string name = "photo_skin_" + std::to_string(type);
        auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", name.c_str());
        ASSERT_NE(node, nullptr);
        ASSERT_EQ(node->getQualityType(), type);
        node->updateSmooth(1.0f);
        node->updateWhite(0.5f);
        frame();
        frame();
        const Bytes out = picture();
        const PassInput in = passInput(source, 1.0, 0.5);
        const Variant variant = variantOf(type);
        int worst = 0, gatedCount = 0;
        for (const Place& place : places) {
            int x = static_cast<int>(place.x), y = static_cast<int>(place.y);
            const double* c = source.at(x, y);
            std::vector<bool> gates;
            if (type == 0) {
                gates = {false};
            } else {
                // A hue within rounding of a gate edge may fall either way.
                double hue = hueOf(c);
                double margin = variant.faceGate ? 0.1 - std::fabs(hue - hueFace)
                                                 : std::min(hue - 0.02, 0.15 - hue);
                if (std::fabs(margin) < 0.004) gates = {true, false};
                else gates = {margin > 0};
                gatedCount += margin > 0;
            }
            int best = 1 << 20;
            double want[3] = {0, 0, 0};
            for (bool gated : gates) {
                double ref[3];
                // Quality 0 gets no soften strength: only its final power shows.
                if (type == 0)
                    softenReference(source, config->getDesignWidth(), config->getDesignHeight(), 0.0, x, y, ref);
                else
                    buffingReference(variant, in, x, y, gated, ref);
                int error = 0;
                for (int k = 0; k < 3; ++k)
                    error = std::max(error, std::abs(out[(static_cast<size_t>(y) * kSize + x) * 4 + k] -
                                                     static_cast<int>(std::lround(ref[k] * 255.0))));
                if (error < best) best = error, std::copy(ref, ref + 3, want);
            }
            worst = std::max(worst, best);
            EXPECT_LE(best, 2) << "quality " << type << " at " << place.name << " (" << x << "," << y << "): got "
                               << int(out[(y * kSize + x) * 4]) << "," << int(out[(y * kSize + x) * 4 + 1]) << ","
                               << int(out[(y * kSize + x) * 4 + 2]) << " want " << want[0] * 255 << ","
                               << want[1] * 255 << "," << want[2] * 255;
        }
        if (type != 0) {
            EXPECT_GE(gatedCount, 8) << "quality " << type << ": most face places are skin";
        }
        std::cout << "quality " << type << ": worst difference from the reference " << worst << " levels, "
                  << gatedCount << " of " << places.size() << " places in the skin gate\n";
        node->removeFromParent();
        frame();
    }

    // Quality 0's program with a strength, as the soften node draws with it
    // on ES 2: the whole green-channel soften, not only its final power.
    config->glversion = 0x20000;
    auto* soften = addNode<ZuFaceBeautifyExpand01Node>("ZuFaceBeautifyExpand01Node", "photo_soften");
    config->glversion = 0x30000;
    ASSERT_NE(soften, nullptr);
    soften->updateSmooth(1.0f);
    frame();
    frame();
    const Bytes out = picture();
    int worst = 0;
    for (const Place& place : places) {
        int x = static_cast<int>(place.x), y = static_cast<int>(place.y);
        double ref[3];
        softenReference(source, config->getDesignWidth(), config->getDesignHeight(), 1.0, x, y, ref);
        for (int k = 0; k < 3; ++k) {
            int got = out[(static_cast<size_t>(y) * kSize + x) * 4 + k];
            worst = std::max(worst, std::abs(got - static_cast<int>(std::lround(ref[k] * 255.0))));
            EXPECT_NEAR(got, ref[k] * 255.0, 2.0) << "soften at " << place.name << " channel " << k;
        }
    }
    std::cout << "soften at strength 1: worst difference from the reference " << worst << " levels\n";
}

// Smoothing at 0 is a pass-through; at 1 the cheeks lose fine texture while
// eyes and mouth keep their edges; whitening lifts skin more than the wall;
// host strengths land within two frames.
TEST_F(BeautyPhotoTest, HostStrengthsSmoothSkinKeepEdgesAndWhitenSkinMost) {
    const Bytes source = picture();
    auto* node = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "photo_skin");
    ASSERT_NE(node, nullptr);
    ASSERT_EQ(node->getQualityType(), 6);

    // Applies host strengths; the picture must settle to its new state within
    // two frames and then stay.
    auto apply = [&](float smooth, float white) {
        Bytes before = picture();
        host->updateFaceBeautify(kScene, kResUID, smooth, white);
        frame();
        frame();
        Bytes after = picture();
        frame();
        EXPECT_EQ(after, picture()) << "strengths " << smooth << ", " << white << " not settled in two frames";
        return after;
    };

    const Bytes off = apply(0.0f, 1.0f);
    int worst = 0;
    for (size_t i = 0; i < off.size(); ++i) worst = std::max(worst, std::abs(off[i] - source[i]));
    EXPECT_LE(worst, 1) << "smoothing 0 changed the picture";

    const Bytes smoothed = apply(1.0f, 0.0f);
    const Bytes whitened = apply(1.0f, 1.0f);
    EXPECT_NE(smoothed, whitened);

    const Box cheeks[2] = {leftCheek(), rightCheek()};
    // Two figures on both cheeks together: fine texture, and the depth of
    // dark spots under their surroundings, which the lift toward the local
    // mean is there to fill.
    double textureBefore = 0, textureAfter = 0, spotsBefore = 0, spotsAfter = 0;
    for (const Box& cheek : cheeks) {
        textureBefore += textureOf(source, cheek), textureAfter += textureOf(smoothed, cheek);
        spotsBefore += darkSpotDepthOf(source, cheek), spotsAfter += darkSpotDepthOf(smoothed, cheek);
    }
    std::cout << "cheek texture (mean |Laplacian|, two cheeks): " << textureBefore / 2 << " -> " << textureAfter / 2
              << " (" << 100.0 * textureAfter / textureBefore << "%)\n";
    std::cout << "cheek dark-spot depth (mean level under the 7x7 mean): " << spotsBefore / 2 << " -> "
              << spotsAfter / 2 << " (" << 100.0 * spotsAfter / spotsBefore << "%)\n";
    EXPECT_LT(textureAfter, 0.95 * textureBefore);
    EXPECT_LT(spotsAfter, 0.93 * spotsBefore);
    const Box features[3] = {eyeBox(36), eyeBox(42), mouthBox()};
    const char* featureNames[3] = {"left eye", "right eye", "mouth"};
    for (int i = 0; i < 3; ++i) {
        double before = edgeEnergyOf(source, features[i]), after = edgeEnergyOf(smoothed, features[i]);
        std::cout << featureNames[i] << " edge energy (mean Sobel^2): " << before << " -> " << after << " ("
                  << 100.0 * after / before << "%)\n";
        EXPECT_GT(after, 0.6 * before) << featureNames[i];
    }

    // Whitening 1 against whitening 0, both smoothed alike.
    const Box skin[3] = {leftCheek(), rightCheek(), forehead()};
    double skinGain = 0;
    for (const Box& b : skin) skinGain += (meanLuma(whitened, b) - meanLuma(smoothed, b)) / 3.0;
    double wallGain = meanLuma(whitened, background()) - meanLuma(smoothed, background());
    double suitGain = meanLuma(whitened, suit()) - meanLuma(smoothed, suit());
    std::cout << "whitening luma gain: skin " << skinGain << ", wall " << wallGain << ", suit " << suitGain << "\n";
    EXPECT_GT(skinGain, 0.0);
    EXPECT_GT(skinGain, wallGain);
}

// Eye strength magnifies around each eye: content near the centre moves out.
// Far from the face nothing moves by even one level.
TEST_F(BeautyPhotoTest, EyeStrengthMagnifiesTheEyesAndLeavesTheRestAlone) {
    const Bytes source = picture();
    auto* node = addNode<ZuBeautyNode>("ZuBeautyNode", "s_photo_warp_0_5");
    ASSERT_NE(node, nullptr);
    host->updateIntensity("s_photo_warp", kResUID, 0.8f);
    frame();
    frame();
    frame();
    ASSERT_FLOAT_EQ(node->getEyeLargeLeft(), 0.8f);
    const Bytes out = picture();
    ZuPersonTracker* face = tracker();
    ASSERT_NE(face, nullptr);

    // For points around each eye, the source patch that the output patch
    // shows lies nearer the eye centre than the point itself.
    auto patchDistance = [&](int ox, int oy, int sx, int sy) {
        double d = 0;
        for (int dy = -3; dy <= 3; ++dy)
            for (int dx = -3; dx <= 3; ++dx) {
                double a = luma(out, ox + dx, oy + dy) - luma(source, sx + dx, sy + dy);
                d += a * a;
            }
        return d;
    };
    int inward = 0, total = 0;
    for (const ZuVec3* eye : {&face->leftEye, &face->rightEye}) {
        // The warp reaches further sideways than up and down (x counts 0.5625).
        for (int k = 0; k < 16; ++k) {
            double angle = (k % 8) * M_PI / 4, reach = k < 8 ? 1.0 : 1.5;
            int px = static_cast<int>(std::lround(eye->x + 6 * reach * std::cos(angle)));
            int py = static_cast<int>(std::lround(eye->y + 4 * reach * std::sin(angle)));
            int bestX = px, bestY = py;
            double best = 1e18;
            for (int sy = py - 6; sy <= py + 6; ++sy)
                for (int sx = px - 6; sx <= px + 6; ++sx) {
                    double d = patchDistance(px, py, sx, sy);
                    if (d < best) best = d, bestX = sx, bestY = sy;
                }
            double fromEye = std::hypot(px - eye->x, py - eye->y);
            double sourceFromEye = std::hypot(bestX - eye->x, bestY - eye->y);
            inward += sourceFromEye < fromEye - 0.5;
            ++total;
        }
    }
    std::cout << "eye warp: " << inward << " of " << total << " points show content from nearer the eye centre\n";
    EXPECT_GE(inward, total * 3 / 4);
    EXPECT_NE(out, source);

    // Corners, the suit and the wall: exactly the source.
    const Box still[] = {{0, 0, 40, 40}, {470, 470, 511, 511}, {0, 470, 40, 511}, {470, 0, 511, 40}, suit(),
                         background()};
    for (const Box& b : still)
        for (int y = b.y0; y <= b.y1; ++y)
            for (int x = b.x0; x <= b.x1; ++x)
                for (int c = 0; c < 4; ++c) {
                    size_t i = (static_cast<size_t>(y) * kSize + x) * 4 + c;
                    ASSERT_EQ(out[i], source[i]) << "moved at " << x << "," << y;
                }
}

// Strengths out of range are clamped with a warning; nothing breaks.
TEST_F(BeautyPhotoTest, OddStrengthsAreClampedWithAWarning) {
    auto* skin = addNode<ZuFaceBuffingWhiteNode>("ZuFaceBuffingWhiteNode", "s_photo_skin_0_5");
    auto* warp = addNode<ZuBeautyNode>("ZuBeautyNode", "s_photo_warp_0_5");
    ASSERT_NE(skin, nullptr);
    ASSERT_NE(warp, nullptr);
    frame();
    {
        LogCapture log;
        host->updateFaceBeautify(kScene, kResUID, -1.0f, 2.0f);
        frame();
        frame();
        EXPECT_FLOAT_EQ(skin->getMaterial()->getSmooth(), 0.0f);
        EXPECT_FLOAT_EQ(skin->getMaterial()->getWhite(), 1.0f);
        EXPECT_EQ(log.count("smooth -1", ZU_LOG_WARN), 1);
        EXPECT_EQ(log.count("white 2", ZU_LOG_WARN), 1);
    }
    {
        LogCapture log;
        host->updateFaceBeautify(kScene, kResUID, 2.0f, -1.0f);
        host->updateIntensity("s_photo_warp", kResUID, 7.0f);
        frame();
        frame();
        EXPECT_FLOAT_EQ(skin->getMaterial()->getSmooth(), 0.8f);
        EXPECT_FLOAT_EQ(skin->getMaterial()->getWhite(), 0.2f);
        EXPECT_FLOAT_EQ(warp->getEyeLargeLeft(), 1.0f);
        EXPECT_FLOAT_EQ(warp->getEyeLargeRight(), 1.0f);
        EXPECT_GE(log.count("clamped", ZU_LOG_WARN), 3);
    }
    {
        LogCapture log;
        host->updateIntensity("s_photo_warp", kResUID, -3.0f);
        host->updateSlimStrength("s_photo_warp", kResUID, -2.0f);
        frame();
        frame();
        EXPECT_FLOAT_EQ(warp->getEyeLargeLeft(), 0.0f);
        EXPECT_FLOAT_EQ(warp->getFaceSlim(), 0.0f);
        EXPECT_GE(log.count("clamped", ZU_LOG_WARN), 2);
        host->updateSlimStrengthValue("s_photo_warp", kResUID, 5.0f, NAN, 0.9f, 0.9f);
        frame();
        frame();
        EXPECT_FLOAT_EQ(warp->getFaceSlim(), 1.001f);
        EXPECT_FLOAT_EQ(warp->getChinUpSlim(), 0.9f);
        EXPECT_FALSE(std::isnan(warp->getChinSlim()));
    }
    // And the engine still draws a sane frame with all of it.
    frame();
    frame();
    Bytes out = picture();
    EXPECT_EQ(out.size(), static_cast<size_t>(kSize) * kSize * 4);
}

// The sample package with no face in sight, at the default quality: with no
// face hue to follow yet, its skin item gates skin by the fixed hue band and
// still smooths; its warp is there with its values, waiting for a face.
TEST_F(BeautyPhotoTest, BeautyPackageWithoutAFaceStillSmooths) {
    // The face leaves.
    ZuPerson* person = app->getGlobalMgr()->getPersonSys()->getPerson(kScene, 1);
    ASSERT_NE(person, nullptr);
    for (int i = 0; i < 20 && person->getExistState() != 0; ++i) frame(false);
    ASSERT_EQ(person->getExistState(), 0);
    const Bytes source = picture();
    host->loadEffect(kScene, "beauty", 31, 0);
    bool loaded = false;
    for (int i = 0; i < 1000 && !loaded; ++i) {
        frame(false);
        loaded = nodes->getNode("s_skin_0_31") && nodes->getNode("s_effectFilter01_0_31");
        if (!loaded) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_TRUE(loaded);
    frame(false);
    frame(false);
    auto* skin = dynamic_cast<ZuFaceBuffingWhiteNode*>(nodes->getNode("s_skin_0_31"));
    auto* warp = dynamic_cast<ZuBeautyNode*>(nodes->getNode("s_effectFilter01_0_31"));
    ASSERT_NE(skin, nullptr);
    ASSERT_NE(warp, nullptr);
    EXPECT_EQ(skin->getQualityType(), 6);
    EXPECT_FLOAT_EQ(warp->getEyeLargeLeft(), 0.85f);
    EXPECT_FLOAT_EQ(warp->getFaceSlim(), 0.92f);

    const Bytes out = picture();
    double before = textureOf(source, leftCheek()) + textureOf(source, rightCheek());
    double after = textureOf(out, leftCheek()) + textureOf(out, rightCheek());
    double spotsBefore = darkSpotDepthOf(source, leftCheek()) + darkSpotDepthOf(source, rightCheek());
    double spotsAfter = darkSpotDepthOf(out, leftCheek()) + darkSpotDepthOf(out, rightCheek());
    std::cout << "package (smooth 0.7, quality 6), no face: cheek texture " << before / 2 << " -> " << after / 2
              << ", dark-spot depth " << spotsBefore / 2 << " -> " << spotsAfter / 2 << "\n";
    EXPECT_LT(after, 0.97 * before);
    EXPECT_LT(spotsAfter, 0.97 * spotsBefore);

    // The warp waits for a face; when one comes it joins in.
    bool warped = false;
    for (int i = 0; i < 10 && !warped; ++i) {
        frame();
        warped = picture() != out;
    }
    EXPECT_TRUE(warped) << "person state " << person->getExistState();
}
