// Camera backgrounds: a frame pushed in each memory format, or a host
// texture, lands upright in the scene target.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/camera/BGTexture.h"
#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "node/camera/ZuBackGroundNode.h"
#include "node/camera/ZuSeparationBackgroundNode.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateSetCameraFormate.h"
#include "operate/ZuOperateSetCameraTexId.h"
#include "operate/ZuOperateSetSeparationCameraFormate.h"
#include "operate/ZuOperateUpdateBGTexture.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"

#include <algorithm>
#include <cmath>

namespace {

struct Rgb {
    int r, g, b;
};

// The conversion every YUV background applies (video-range BT.601).
Rgb yuvToRgb(int y, int u, int v) {
    double yy = (y / 255.0 - 16.0 / 255.0) * 1.164;
    double uu = u / 255.0 - 0.5, vv = v / 255.0 - 0.5;
    auto clamp = [](double c) { return static_cast<int>(std::lround(std::min(1.0, std::max(0.0, c)) * 255.0)); };
    return {clamp(yy + 1.596 * vv), clamp(yy - 0.392 * uu - 0.813 * vv), clamp(yy + 2.017 * uu)};
}

class BackgroundTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        config = app->getGlobalMgr()->getConfig();
        nodes = app->getGlobalMgr()->getNodeMgr();
    }
    // A scene whose camera gives width x height frames at angle.
    void makeScene(int width, int height, int angle, int hostFormat) {
        Camera* camera = config->getCamera("cam");
        camera->width = width;
        camera->height = height;
        camera->angle = angle;
        push(new ZuOperateCreateLogicScene(app, "cam", 64, 64, width, height, SCALE_MODE_FULL));
        push(new ZuOperateSetCameraFormate(app, "cam", hostFormat));
        frame();
    }
    // The scene target's pixels, bottom row first.
    std::vector<uint8_t> sceneTarget(int& w, int& h) {
        ZuFboObject* fbo = app->getGlobalMgr()->getSceneMgr()->getScene("cam")->getFbo();
        w = fbo->getFrameWidth();
        h = fbo->getFrameHeight();
        glBindFramebuffer(GL_FRAMEBUFFER, fbo->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, w, h);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }

    ZuConfig* config = nullptr;
    ZuNodeMgr* nodes = nullptr;
};

} // namespace

TEST_F(BackgroundTest, RgbaFramesLandUprightAndTurnWithTheCamera) {
    // 4 x 8 portrait frame, each pixel its own colour: r = column, g = row (top first).
    const int W = 4, H = 8;
    std::vector<uint8_t> frameBytes(W * H * 4);
    for (int row = 0; row < H; row++)
        for (int col = 0; col < W; col++) {
            uint8_t* p = &frameBytes[(row * W + col) * 4];
            p[0] = static_cast<uint8_t>(col * 40);
            p[1] = static_cast<uint8_t>(row * 30);
            p[2] = 200;
            p[3] = 255;
        }
    makeScene(W, H, 0, 4);
    ASSERT_NE(nodes->getNode("cambackground"), nullptr);
    ASSERT_NE(nodes->getNode("cambackgroundrender"), nullptr);
    app->getAppInter()->pushCameraData("cam", frameBytes.data(), static_cast<int>(frameBytes.size()));
    frame();
    int w, h;
    std::vector<uint8_t> target = sceneTarget(w, h);
    ASSERT_EQ(w, W);
    ASSERT_EQ(h, H);
    // GL rows run bottom-up: target row y holds the frame's row H - 1 - y.
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++) {
            const uint8_t* got = &target[(y * W + x) * 4];
            const uint8_t* want = &frameBytes[((H - 1 - y) * W + x) * 4];
            ASSERT_NEAR(got[0], want[0], 1) << x << "," << y;
            ASSERT_NEAR(got[1], want[1], 1) << x << "," << y;
            ASSERT_NEAR(got[2], want[2], 1) << x << "," << y;
        }

    // Setting the format again replaces the two nodes, one of each name.
    int before = nodes->size();
    push(new ZuOperateSetCameraFormate(app, "cam", 5));
    frame();
    EXPECT_EQ(nodes->size(), before);
    EXPECT_EQ(config->cameraImageFormat, 5);
}

TEST_F(BackgroundTest, LandscapeCameraTurnedNinetyDegreesFillsThePortraitScene) {
    // An 8 x 4 landscape frame from a camera mounted at 90 degrees.
    const int W = 8, H = 4;
    std::vector<uint8_t> frameBytes(W * H * 4);
    for (int row = 0; row < H; row++)
        for (int col = 0; col < W; col++) {
            uint8_t* p = &frameBytes[(row * W + col) * 4];
            p[0] = static_cast<uint8_t>(col * 30);
            p[1] = static_cast<uint8_t>(row * 60);
            p[2] = 0;
            p[3] = 255;
        }
    makeScene(W, H, 90, 4);
    app->getAppInter()->pushCameraData("cam", frameBytes.data(), static_cast<int>(frameBytes.size()));
    frame();
    int w, h;
    std::vector<uint8_t> target = sceneTarget(w, h);
    ASSERT_EQ(w, 4);
    ASSERT_EQ(h, 8);
    // The rotated rectangle maps target (x, y) to frame column y and frame
    // row x: a transpose of the upright image.
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++) {
            const uint8_t* got = &target[(y * w + x) * 4];
            const uint8_t* want = &frameBytes[(x * W + y) * 4];
            ASSERT_NEAR(got[0], want[0], 1) << x << "," << y;
            ASSERT_NEAR(got[1], want[1], 1) << x << "," << y;
        }
}

TEST_F(BackgroundTest, YuvFramesConvertWithTheVideoRangeFormula) {
    const int W = 4, H = 4;
    const int U = 90, V = 170;
    struct Case {
        int hostFormat;
        const char* name;
    } cases[] = {{0, "NV21"}, {1, "NV12"}, {2, "YV12"}, {3, "I420"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        // Luma varies per pixel; chroma is flat so that its filtering cannot matter.
        std::vector<uint8_t> frameBytes(W * H * 3 / 2);
        for (int i = 0; i < W * H; i++) frameBytes[i] = static_cast<uint8_t>(20 + i * 13);
        uint8_t* chroma = frameBytes.data() + W * H;
        int quarter = W * H / 4;
        for (int i = 0; i < quarter; i++) {
            switch (c.hostFormat) {
            case 0: chroma[2 * i] = V, chroma[2 * i + 1] = U; break;  // NV21: V U
            case 1: chroma[2 * i] = U, chroma[2 * i + 1] = V; break;  // NV12: U V
            case 2: chroma[i] = V, chroma[quarter + i] = U; break;    // YV12: V plane, U plane
            case 3: chroma[i] = U, chroma[quarter + i] = V; break;    // I420: U plane, V plane
            }
        }
        app->getGlobalMgr()->getSceneMgr()->destroyScene("cam");
        makeScene(W, H, 0, c.hostFormat);
        app->getAppInter()->pushCameraData("cam", frameBytes.data(), static_cast<int>(frameBytes.size()));
        frame();
        int w, h;
        std::vector<uint8_t> target = sceneTarget(w, h);
        for (int y = 0; y < H; y++)
            for (int x = 0; x < W; x++) {
                Rgb want = yuvToRgb(frameBytes[(H - 1 - y) * W + x], U, V);
                const uint8_t* got = &target[(y * W + x) * 4];
                ASSERT_NEAR(got[0], want.r, 2) << x << "," << y;
                ASSERT_NEAR(got[1], want.g, 2) << x << "," << y;
                ASSERT_NEAR(got[2], want.b, 2) << x << "," << y;
            }
    }
}

TEST_F(BackgroundTest, FramesOfTheWrongSizeKeepTheLastPicture) {
    const int W = 4, H = 4;
    std::vector<uint8_t> red(W * H * 4), tooSmall(8, 255);
    for (int i = 0; i < W * H; i++) red[i * 4] = 255, red[i * 4 + 3] = 255;
    makeScene(W, H, 0, 4);
    app->getAppInter()->pushCameraData("cam", red.data(), static_cast<int>(red.size()));
    frame();
    app->getAppInter()->pushCameraData("cam", tooSmall.data(), static_cast<int>(tooSmall.size()));  // refused
    frame();
    int w, h;
    std::vector<uint8_t> target = sceneTarget(w, h);
    EXPECT_EQ(target[0], 255);
    EXPECT_EQ(target[1], 0);
}

TEST_F(BackgroundTest, HostTexturesBecomeTheBackgroundOnceTheyHaveAName) {
    const int W = 4, H = 4;
    Camera* camera = config->getCamera("cam");
    camera->width = W;
    camera->height = H;
    camera->angle = 0;
    // A host texture, top half blue, bottom half green (rows uploaded top first).
    std::vector<uint8_t> pixels(W * H * 4);
    for (int row = 0; row < H; row++)
        for (int col = 0; col < W; col++) {
            uint8_t* p = &pixels[(row * W + col) * 4];
            p[0] = 0, p[1] = row < 2 ? 0 : 255, p[2] = row < 2 ? 255 : 0, p[3] = 255;
        }
    GLuint host = 0;
    glGenTextures(1, &host);
    glBindTexture(GL_TEXTURE_2D, host);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, W, H, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());

    push(new ZuOperateCreateLogicScene(app, "cam", 64, 64, W, H, SCALE_MODE_FULL));
    push(new ZuOperateSetCameraTexId(app, "cam", static_cast<int>(host), PF_RGBA, W, H));
    frame();
    frame();
    ZuNode* node = nodes->getNode("cam_background");
    ASSERT_NE(dynamic_cast<ZuBackGroundExtTextureNode*>(node), nullptr);
    int w, h;
    std::vector<uint8_t> target = sceneTarget(w, h);
    // Same way up as converted planes: the image's top row at the target's top.
    EXPECT_EQ(target[(0 * W + 1) * 4 + 1], 255);               // bottom row green
    EXPECT_EQ(target[((H - 1) * W + 1) * 4 + 2], 255);         // top row blue

    // A name of 0 changes nothing; a new name is taken.
    push(new ZuOperateUpdateBGTexture(app, "cam_background", 0, W, H));
    frame();
    EXPECT_TRUE(node->isVisible());
    app->getGlobalMgr()->getSceneMgr()->destroyScene("cam");
    glDeleteTextures(1, &host);
}

TEST_F(BackgroundTest, SeparationBackgroundCutsThePictureWithTheMask) {
    const int W = 4, H = 4;
    std::vector<uint8_t> white(W * H * 4, 255);
    Camera* camera = config->getCamera("cam");
    camera->width = W;
    camera->height = H;
    camera->angle = 0;
    push(new ZuOperateCreateLogicScene(app, "cam", 64, 64, W, H, SCALE_MODE_FULL));
    push(new ZuOperateSetSeparationCameraFormate(app, "cam", 4));
    frame();
    ZuSeparationBackgroundNode* cut =
        dynamic_cast<ZuSeparationBackgroundNode*>(nodes->getNode("cam_separationbg_render"));
    ASSERT_NE(cut, nullptr);
    // Mask rows top first: the top half removes the picture.
    std::vector<uint8_t> mask(W * H, 0);
    std::fill(mask.begin(), mask.begin() + W * H / 2, 255);
    ZuTexture* maskTex = app->getGlobalMgr()->getTexMgr()->createNullTextureWithData(
        "cammask", W, H, GL_LUMINANCE, GL_LUMINANCE, mask.data());
    cut->setSeparationTexture(maskTex);
    app->getAppInter()->pushCameraData("cam", white.data(), static_cast<int>(white.size()));
    frame();
    int w, h;
    std::vector<uint8_t> target = sceneTarget(w, h);
    // The mask is read with y flipped, so that its rows, stored top first like
    // the frame's, cut the top of the upright picture.
    EXPECT_EQ(target[(0 * W + 1) * 4 + 0], 255);
    EXPECT_EQ(target[((H - 1) * W + 1) * 4 + 0], 0);
}
