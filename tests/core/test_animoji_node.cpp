// The sample character package through the facade, as a host drives it: the
// photo as an RGBA camera frame, the committed FP record of its face, the
// package loaded by loadEffect. The head is drawn on the face; opening the
// record's mouth raises the MouthOpen weight and opens the drawn mouth.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "core/ZuOgreAnimojiMesh.h"
#include "core/ZuOgreAnimojiNode.h"
#include "core/ZuOgrePieceModel.h"
#include "data/DETECTTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuPngLoader.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <GLES2/gl2.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;
const int kSize = 512;
const char* const kScene = "s";

Bytes readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// FP record: i32 count, then per face f32 roll, yaw, pitch, 4 x i32, and 106
// (x, y) f32 pairs, y counted from the top.
const size_t kPointsAt = 4 + 12 + 16;
float pointY(const Bytes& r, int i) {
    float y;
    std::memcpy(&y, &r[kPointsAt + i * 8 + 4], 4);
    return y;
}
void setPointY(Bytes& r, int i, float y) { std::memcpy(&r[kPointsAt + i * 8 + 4], &y, 4); }

ZuOgreAnimojiNode* findCharacter(ZuNode* node) {
    if (auto* found = dynamic_cast<ZuOgreAnimojiNode*>(node)) return found;
    for (uint32_t i = 0; i < node->getChildCount(); ++i)
        if (ZuOgreAnimojiNode* found = findCharacter(node->getChildren()[i])) return found;
    return nullptr;
}

class AnimojiNodeTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override {
        return {std::string(QZ_SOURCE_DIR) + "/samples/packages/", sourceAssets()};
    }
    void SetUp() override {
        EngineTest::SetUp();
        host = app->getAppInter();
        Bytes png = readFile(QZ_SOURCE_DIR "/samples/photos/astronaut.png");
        ZuPngLoader loader(app);
        unsigned char* pixels = nullptr;
        ASSERT_TRUE(loader._readPngFromStream(png.data(), static_cast<int>(png.size()), "astronaut.png", &pixels));
        int channels = loader.getGlFormat() == GL_RGBA ? 4 : 3;
        photo.assign(static_cast<size_t>(kSize) * kSize * 4, 255);
        for (size_t i = 0; i < static_cast<size_t>(kSize) * kSize; ++i)
            for (int c = 0; c < 3; ++c) photo[i * 4 + c] = pixels[i * channels + c];
        free(pixels);
        closed = readFile(QZ_SOURCE_DIR "/samples/faces/astronaut.fp.rec");
        ASSERT_EQ(closed.size(), kPointsAt + 106 * 8);

        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(kScene);
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
        host->createLogicSceneFull(kScene, kSize, kSize, kSize, kSize);
        host->createBGNode(kScene, 4);
        host->setDetectType(DETECTTYPE_FP);
        frame(closed);
        scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
        ASSERT_NE(scene, nullptr);
    }
    // The tracker measures a detection once: as a live tracker's do, the
    // landmarks shift by half a pixel from frame to frame.
    void frame(const Bytes& record) {
        Bytes jittered = record;
        if (jittered.size() == closed.size() && (++count & 1)) {
            for (int i = 0; i < 106; ++i) {
                float x;
                std::memcpy(&x, &jittered[kPointsAt + i * 8], 4);
                x += 0.5f;
                std::memcpy(&jittered[kPointsAt + i * 8], &x, 4);
            }
        }
        host->pushCameraData(kScene, photo.data(), static_cast<int>(photo.size()));
        host->setDetectData(kScene, jittered.data(), static_cast<int>(jittered.size()));
        app->update();
        app->directrender("");
    }
    // Loads the package and runs frames until the character shows.
    ZuOgreAnimojiNode* loadCharacter(const char* package) {
        host->loadEffect(kScene, package, 7, 0);
        for (int i = 0; i < 100; ++i) {
            frame(closed);
            ZuOgreAnimojiNode* node = findCharacter(scene);
            if (node && node->isVisible()) {
                frame(closed);
                return node;
            }
        }
        return nullptr;
    }
    Bytes picture() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        Bytes pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    // Pixels of the inside of the mouth (dark red) in a box, rows from the bottom.
    static int mouthPixels(const Bytes& p, int x0, int y0, int x1, int y1) {
        int n = 0;
        for (int y = y0; y < y1; ++y)
            for (int x = x0; x < x1; ++x) {
                const uint8_t* c = &p[(static_cast<size_t>(y) * kSize + x) * 4];
                n += c[0] < 110 && c[1] < 40 && c[2] < 50 && c[0] > c[1] + 20;
            }
        return n;
    }
    const uint8_t* at(const Bytes& p, int x, int y) { return &p[(static_cast<size_t>(y) * kSize + x) * 4]; }

    ZuAppNative* host = nullptr;
    ZuScene* scene = nullptr;
    Bytes photo, closed;
    int count = 0;
};

TEST_F(AnimojiNodeTest, HeadSitsOnTheFaceAndItsMouthOpensWithTheRecordsMouth) {
    ZuOgreAnimojiNode* node = loadCharacter("animoji");
    ASSERT_NE(node, nullptr);
    ASSERT_NE(node->getPieceModel(), nullptr);
    EXPECT_TRUE(node->getPieceModel()->hasSkeleton());
    // Face box of the record's landmarks, in engine rows (y from the bottom).
    float minX = 1e9f, maxX = -1e9f, minY = 1e9f, maxY = -1e9f;
    for (int i = 0; i < 106; ++i) {
        float x;
        std::memcpy(&x, &closed[kPointsAt + i * 8], 4);
        float y = kSize - pointY(closed, i);
        minX = std::min(minX, x), maxX = std::max(maxX, x);
        minY = std::min(minY, y), maxY = std::max(maxY, y);
    }
    const int cx = static_cast<int>((minX + maxX) / 2), cy = static_cast<int>((minY + maxY) / 2);
    Bytes shut = picture();
    // The head's skin at the face's centre, where the photo has a face...
    const uint8_t* skin = at(shut, cx, cy);
    EXPECT_GT(skin[0], 120);
    EXPECT_GT(skin[0], skin[2] + 30);
    // ... and the photo untouched far from it (the wall, upper right).
    const uint8_t* wall = at(shut, 400, 450);
    const uint8_t* wallPhoto = &photo[(static_cast<size_t>(kSize - 1 - 450) * kSize + 400) * 4];
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(wall[c], wallPhoto[c], 2);
    const float shutWeight = node->getBlendShapeWeights()[MouthOpen];
    EXPECT_FLOAT_EQ(node->getBlendShapeWeights()[ShouBoZi], 1.0f);

    // Open the record's mouth: the inner lower lip (102) goes down 25 pixels.
    Bytes open = closed;
    setPointY(open, 102, pointY(open, 102) + 25.0f);
    for (int i = 0; i < 8; ++i) frame(open);
    const float openWeight = node->getBlendShapeWeights()[MouthOpen];
    EXPECT_GT(openWeight, shutWeight + 0.2f);
    // The morph buffer moves the jaw down: the mouth's inside grows on screen.
    Bytes opened = picture();
    const int w = static_cast<int>(maxX - minX);
    const int mx0 = cx - w / 2, mx1 = cx + w / 2, my0 = cy - w, my1 = cy;
    int before = mouthPixels(shut, mx0, my0, mx1, my1), after = mouthPixels(opened, mx0, my0, mx1, my1);
    EXPECT_GT(before, 0);
    EXPECT_GT(after * 2, before * 3);

    // Shut again: the weight falls back and the mouth closes.
    for (int i = 0; i < 12; ++i) frame(closed);
    EXPECT_LT(node->getBlendShapeWeights()[MouthOpen], openWeight * 0.5f);
    EXPECT_LT(mouthPixels(picture(), mx0, my0, mx1, my1), after);
}

TEST_F(AnimojiNodeTest, TheHeadTurnsWithTheRecordsYawUpToItsLimit) {
    ZuOgreAnimojiNode* node = loadCharacter("animoji");
    ASSERT_NE(node, nullptr);
    // Around the face (the photo has red elsewhere: the flag, the suit).
    float minX = 1e9f, maxX = -1e9f;
    for (int i = 0; i < 106; ++i) {
        float x;
        std::memcpy(&x, &closed[kPointsAt + i * 8], 4);
        minX = std::min(minX, x), maxX = std::max(maxX, x);
    }
    const int x0 = static_cast<int>(minX) - 20, x1 = static_cast<int>(maxX) + 20;
    // The mouth's red against the head's skin: where the lips sit across the
    // head, in columns (0 when they face the camera).
    auto mouthX = [&](const Bytes& p) {
        double lips = 0, skin = 0;
        int nLips = 0, nSkin = 0;
        for (int y = 0; y < kSize; ++y)
            for (int x = x0; x < x1; ++x) {
                const uint8_t* c = &p[(static_cast<size_t>(y) * kSize + x) * 4];
                if (c[0] > 120 && c[1] < 70 && c[2] < 80) lips += x, ++nLips;
                if (c[0] > 170 && c[1] > 130 && c[2] > 90 && c[0] > c[2] + 40) skin += x, ++nSkin;
            }
        return nLips && nSkin ? lips / nLips - skin / nSkin : 1e9;
    };
    // Records that say the head is turned 50 degrees one way, then the other.
    // The face jumps 30 pixels to and fro (ending where it started): the
    // tracker follows a pose only while the face moves.
    auto turn = [&](float yaw) {
        Bytes turned = closed;
        std::memcpy(&turned[8], &yaw, 4);
        for (int i = 0; i < 30; ++i) {
            for (int p = 0; p < 106; ++p) {
                float x;
                std::memcpy(&x, &turned[kPointsAt + p * 8], 4);
                x += (i & 1) ? 30.0f : -30.0f;
                std::memcpy(&turned[kPointsAt + p * 8], &x, 4);
            }
            frame(turned);
        }
        return mouthX(picture());
    };
    const double left = turn(50.0f);
    // Clamped to 35 degrees; the bone of weight 100 turns the whole head.
    EXPECT_FLOAT_EQ(node->getYaw(), 35.0f);
    const double right = turn(-50.0f);
    EXPECT_FLOAT_EQ(node->getYaw(), -35.0f);
    // The lips cross the head from one side of its middle to the other.
    EXPECT_GT(std::fabs(left - right), 8.0) << left << " " << right;
    EXPECT_LT(left * right, 0.0) << left << " " << right;
}

TEST_F(AnimojiNodeTest, WithoutAFaceTheCharacterIsNeutralAndTheMorphBufferEmpty) {
    ZuOgreAnimojiNode* node = loadCharacter("animoji");
    ASSERT_NE(node, nullptr);
    const Bytes noFaces(4, 0);
    for (int i = 0; i < 3; ++i) frame(noFaces);
    for (int i = 0; i < ShouBoZi; ++i) EXPECT_EQ(node->getBlendShapeWeights()[i], 0.0f) << i;
    EXPECT_EQ(node->getBlendShapeWeights()[ShouBoZi], 1.0f);
    EXPECT_EQ(node->getYaw(), 0.0f);
    // The model has no ShouBoZi pose worth a vertex beyond its own small one:
    // every other offset is 0.
    ZuOgreAnimojiMesh* mesh = node->getMesh(0);
    ASSERT_NE(mesh, nullptr);
    int moved = 0;
    int floats = mesh->getVertexBufferLength() / 4;
    for (int i = 0; i < floats; ++i) moved += mesh->getMorphScratch()[i] != 0.0f;
    EXPECT_EQ(moved, node->getPieceModel()->getPoseBufferSize("ShouBoZi", 1));
}

TEST_F(AnimojiNodeTest, BrokenPackagesAreRefusedAndTheEngineGoesOn) {
    TempDir dir;
    Bytes bytes = readFile(QZ_SOURCE_DIR "/samples/packages/animoji/head.mesh");
    dir.write("cut/head.mesh", std::string(bytes.begin(), bytes.begin() + static_cast<long>(bytes.size() / 2)));
    dir.write("cut/config.json",
              R"({"param":[{"id":"h","type":"ogreAnimoji","animoji":{"mesh_name":"head.mesh"},)"
              R"("ManualBones":[{"name":"Head","weight":100}]}]})");
    dir.write("nobones/config.json",
              R"({"param":[{"id":"h","type":"ogreAnimoji","animoji":{"mesh_name":"head.mesh"}}]})");
    LogCapture log;
    host->loadEffect(kScene, (dir.path() + "cut").c_str(), 8, 0);
    host->loadEffect(kScene, (dir.path() + "nobones").c_str(), 9, 1);
    for (int i = 0; i < 20; ++i) frame(closed);
    EXPECT_GE(log.count("head.mesh: chunk 0x3000"), 1);
    EXPECT_GE(log.count("\"ManualBones\" array missing"), 1);
    ZuOgreAnimojiNode* node = findCharacter(scene);
    if (node) {
        EXPECT_FALSE(node->isLoaded());
        EXPECT_FALSE(node->isVisible());
    }
}

} // namespace
