// The camera path end to end, driven only through the host facade: a frame
// in every camera format, at every camera angle, comes back in every output
// format, mirrored and not, compared with a reference computed here from the
// documented conversions and rectangle tables (not from the engine's code).
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "support/EngineFixture.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

// ---------------------------------------------------------------- reference

// An RGB picture in 0 to 1, rows in GL order (row 0 at the bottom; for an
// uploaded texture, row 0 is the first row in memory).
struct Image {
    int w = 0, h = 0;
    std::vector<float> rgb;
    Image(int w, int h) : w(w), h(h), rgb(static_cast<size_t>(w) * h * 3, 0.0f) {}
    float* at(int x, int y) { return &rgb[(static_cast<size_t>(y) * w + x) * 3]; }
    const float* at(int x, int y) const { return &rgb[(static_cast<size_t>(y) * w + x) * 3]; }
};

// Texture coordinates of the four corners (bottom-left, bottom-right,
// top-left, top-right) of the full-screen rectangles.
const float kFull[8] = {0, 0, 1, 0, 0, 1, 1, 1};
const float kRot90[8] = {0, 1, 0, 0, 1, 1, 1, 0};
const float kRot180[8] = {1, 1, 0, 1, 1, 0, 0, 0};
const float kRot270[8] = {1, 0, 1, 1, 0, 0, 0, 1};

const float* rectFor(int angle) {
    switch (angle) {
    case 90: return kRot90;
    case 180: return kRot180;
    case 270: return kRot270;
    default: return kFull;
    }
}

// The rectangle that takes a rotation back, as the output copy uses it.
const float* inverseRectFor(int angle) {
    switch (angle) {
    case 90: return kRot270;
    case 180: return kRot180;
    case 270: return kRot90;
    default: return kFull;
    }
}

// A full-screen draw of src into a w x h target through a rectangle with the
// corner table and a texture-coordinate clip (t - 0.5) * clip + 0.5. The
// sizes used make every sample fall on a texel centre.
Image draw(const Image& src, int w, int h, const float tex[8], float clipX, float clipY) {
    Image out(w, h);
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++) {
            float sx = (x + 0.5f) / w, sy = (y + 0.5f) / h;
            const float weight[4] = {(1 - sx) * (1 - sy), sx * (1 - sy), (1 - sx) * sy, sx * sy};
            float u = 0, v = 0;
            for (int i = 0; i < 4; i++) {
                u += weight[i] * tex[2 * i];
                v += weight[i] * tex[2 * i + 1];
            }
            u = (u - 0.5f) * clipX + 0.5f;
            v = (v - 0.5f) * clipY + 0.5f;
            int px = std::min(src.w - 1, std::max(0, static_cast<int>(std::floor(u * src.w))));
            int py = std::min(src.h - 1, std::max(0, static_cast<int>(std::floor(v * src.h))));
            std::copy(src.at(px, py), src.at(px, py) + 3, out.at(x, y));
        }
    return out;
}

float clamp01(float v) { return std::min(1.0f, std::max(0.0f, v)); }

// Video-range BT.601 to RGB, as the background conversion computes it.
void yuvToRgb(float y, float u, float v, float* rgb) {
    float yy = (y - 16.0f / 255.0f) * 1.164f, uu = u - 0.5f, vv = v - 0.5f;
    rgb[0] = clamp01(yy + 1.596f * vv);
    rgb[1] = clamp01(yy - 0.392f * uu - 0.813f * vv);
    rgb[2] = clamp01(yy + 2.017f * uu);
}

// And back, as the output conversion computes it.
float lumaOf(const float* rgb) { return 0.256816f * rgb[0] + 0.504154f * rgb[1] + 0.0979137f * rgb[2] + 0.0625f; }
float uOf(const float* rgb) { return -0.148246f * rgb[0] - 0.29102f * rgb[1] + 0.439266f * rgb[2] + 0.5f; }
float vOf(const float* rgb) { return 0.439271f * rgb[0] - 0.367833f * rgb[1] - 0.071438f * rgb[2] + 0.5f; }

// ------------------------------------------------------------------ frames

// Host camera codes and the bytes of their frames.
struct CameraFormat {
    int hostCode;
    const char* name;
    bool yuv;
};
const CameraFormat kCameraFormats[] = {{0, "NV21", true}, {1, "NV12", true}, {2, "YV12", true},
                                       {3, "I420", true}, {4, "RGBA", false}, {5, "BGRA", false}};

// Chroma kept flat (and away from clipping) so that chroma filtering cannot
// matter; luma and RGB vary in both directions so that a flip or a turn shows.
const int kU = 110, kV = 150;

struct Frame {
    std::vector<uint8_t> bytes;
    Image picture;  // as uploaded: row 0 = first row in memory
    Frame(int w, int h) : picture(w, h) {}
};

Frame makeFrame(const CameraFormat& format, int w, int h) {
    Frame frame(w, h);
    if (format.yuv) {
        frame.bytes.assign(static_cast<size_t>(w) * h * 3 / 2, 0);
        for (int y = 0; y < h; y++)
            for (int x = 0; x < w; x++) {
                uint8_t luma = static_cast<uint8_t>(60 + (x * 97 + y * 31) % 120);
                frame.bytes[y * w + x] = luma;
                yuvToRgb(luma / 255.0f, kU / 255.0f, kV / 255.0f, frame.picture.at(x, y));
            }
        uint8_t* chroma = frame.bytes.data() + w * h;
        int quarter = w * h / 4;
        for (int i = 0; i < quarter; i++) {
            switch (format.hostCode) {
            case 0: chroma[2 * i] = kV, chroma[2 * i + 1] = kU; break;
            case 1: chroma[2 * i] = kU, chroma[2 * i + 1] = kV; break;
            case 2: chroma[i] = kV, chroma[quarter + i] = kU; break;
            case 3: chroma[i] = kU, chroma[quarter + i] = kV; break;
            }
        }
    } else {
        frame.bytes.assign(static_cast<size_t>(w) * h * 4, 255);
        for (int y = 0; y < h; y++)
            for (int x = 0; x < w; x++) {
                uint8_t r = static_cast<uint8_t>(x * 255 / (w - 1));
                uint8_t g = static_cast<uint8_t>(y * 255 / (h - 1));
                uint8_t b = static_cast<uint8_t>((x * 53 + y * 71) % 256);
                uint8_t* p = &frame.bytes[(static_cast<size_t>(y) * w + x) * 4];
                bool bgra = format.hostCode == 5;
                p[0] = bgra ? b : r, p[1] = g, p[2] = bgra ? r : b;
                float* out = frame.picture.at(x, y);
                out[0] = r / 255.0f, out[1] = g / 255.0f, out[2] = b / 255.0f;
            }
    }
    return frame;
}

// What the output node must hold for one frame: the picture stood upright
// (the uploaded rows flipped), turned into the scene, then turned back and
// mirrored as asked.
Image expectedOutput(const Image& uploaded, int angle, bool mirror) {
    int w = uploaded.w, h = uploaded.h;
    Image background = draw(uploaded, w, h, kFull, 1.0f, -1.0f);
    int sceneW = std::min(w, h), sceneH = std::max(w, h);
    Image scene = draw(background, sceneW, sceneH, rectFor(angle), 1.0f, 1.0f);
    return draw(scene, w, h, inverseRectFor(angle), mirror ? 1.0f : -1.0f, 1.0f);
}

// --------------------------------------------------------------- outputs

struct OutputFormat {
    int type;  // OUTSTEAMTYPE
    const char* name;
};
const OutputFormat kOutputs[] = {{1, "RGBA"}, {5, "BGRA"}, {0, "NV12"}, {2, "NV21"}, {3, "YV12"}, {4, "I420"}};

std::string describe(const CameraFormat& in, int angle, const OutputFormat& out, bool mirror) {
    return std::string(in.name) + " at " + std::to_string(angle) + " -> " + out.name + (mirror ? "" : " mirrored");
}

// Compares a read-back frame with the expected picture. RGB within the
// rounding of two 8-bit passes; luma exactly placed; chroma planes hold the
// chroma of each 2 x 2 block in the format's order.
void checkOutput(const std::vector<uint8_t>& got, const Image& want, int type, const std::string& what) {
    int w = want.w, h = want.h;
    if (type == 1 || type == 5) {
        ASSERT_EQ(got.size(), static_cast<size_t>(w) * h * 4) << what;
        for (int y = 0; y < h; y++)
            for (int x = 0; x < w; x++) {
                const uint8_t* p = &got[(static_cast<size_t>(y) * w + x) * 4];
                const float* rgb = want.at(x, y);
                int r = type == 5 ? p[2] : p[0], b = type == 5 ? p[0] : p[2];
                ASSERT_NEAR(r, rgb[0] * 255, 2.5) << what << " at " << x << "," << y;
                ASSERT_NEAR(p[1], rgb[1] * 255, 2.5) << what << " at " << x << "," << y;
                ASSERT_NEAR(b, rgb[2] * 255, 2.5) << what << " at " << x << "," << y;
            }
        return;
    }
    ASSERT_EQ(got.size(), static_cast<size_t>(w) * h * 3 / 2) << what;
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++)
            ASSERT_NEAR(got[static_cast<size_t>(y) * w + x], lumaOf(want.at(x, y)) * 255, 2.5)
                << what << " luma at " << x << "," << y;
    // Chroma of each 2 x 2 block: that of the block's average colour.
    int quarter = w * h / 4;
    const uint8_t* chroma = got.data() + w * h;
    for (int i = 0; i < quarter; i++) {
        int bx = i % (w / 2), by = i / (w / 2);
        float mean[3] = {0, 0, 0};
        for (int dy = 0; dy < 2; dy++)
            for (int dx = 0; dx < 2; dx++)
                for (int c = 0; c < 3; c++) mean[c] += want.at(2 * bx + dx, 2 * by + dy)[c] / 4.0f;
        int u, v;
        switch (type) {
        case 0: u = chroma[2 * i], v = chroma[2 * i + 1]; break;  // NV12
        case 2: v = chroma[2 * i], u = chroma[2 * i + 1]; break;  // NV21
        case 3: v = chroma[i], u = chroma[quarter + i]; break;    // YV12
        default: u = chroma[i], v = chroma[quarter + i]; break;   // I420
        }
        ASSERT_NEAR(u, uOf(mean) * 255, 3) << what << " chroma " << i;
        ASSERT_NEAR(v, vOf(mean) * 255, 3) << what << " chroma " << i;
    }
}

class CameraPathTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        host = app->getAppInter();
        // Synchronous read-back: every frame arrives in the frame it was drawn.
        app->getGlobalMgr()->getConfig()->glversion = 0x20000;
    }

    ZuAppNative* host = nullptr;
};

} // namespace

// Sizes: portrait frames for 0 and 180 degrees, landscape for 90 and 270, so
// that the turned picture fills the portrait scene one texel to one pixel.
// Widths and heights are multiples of 8 so every chroma band is whole rows.
TEST_F(CameraPathTest, EveryFormatAngleAndMirrorComesBackAsTheReferenceSays) {
    const int angles[] = {0, 90, 180, 270};
    int sceneIndex = 0;
    for (const CameraFormat& in : kCameraFormats) {
        for (int angle : angles) {
            bool turned = angle == 90 || angle == 270;
            int w = turned ? 16 : 8, h = turned ? 8 : 16;
            std::string scene = "cam" + std::to_string(sceneIndex++);
            Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(scene.c_str());
            camera->width = w;
            camera->height = h;
            camera->angle = angle;
            host->createLogicSceneFull(scene.c_str(), 64, 64, w, h);
            host->createBGNode(scene.c_str(), in.hostCode);
            for (const OutputFormat& out : kOutputs)
                for (bool mirror : {true, false}) {
                    std::string node = scene + "_" + out.name + (mirror ? "" : "_m");
                    host->setOutSteamFormateOnTransNode(scene.c_str(), node.c_str(), out.type, mirror, false);
                }
            frame();

            Frame input = makeFrame(in, w, h);
            host->pushCameraData(scene.c_str(), input.bytes.data(), static_cast<int>(input.bytes.size()));
            frame();

            for (const OutputFormat& out : kOutputs)
                for (bool mirror : {true, false}) {
                    std::string node = scene + "_" + out.name + (mirror ? "" : "_m");
                    size_t bytes = (out.type == 1 || out.type == 5) ? w * h * 4 : w * h * 3 / 2;
                    std::vector<uint8_t> got(bytes, 0);
                    host->fetchRenderDataOnTransNode(scene.c_str(), node.c_str(), got.data());
                    checkOutput(got, expectedOutput(input.picture, angle, mirror), out.type,
                                describe(in, angle, out, mirror));
                    if (HasFatalFailure()) return;
                }
            host->destoryLogicScene(scene.c_str());
            frame();
        }
    }
}
