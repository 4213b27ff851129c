// The particle node on a real scene: its quads land where the effect puts
// them, in the stream and with the blend the node names, and an effect with
// nothing alive draws nothing.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuTriggerLists.h"
#include "particle/ZuParticleEffect.h"
#include "particle/ZuParticleEffectorColor.h"
#include "particle/ZuParticleEffectorScale.h"
#include "particle/ZuParticleEmitterPoint.h"
#include "particle/ZuParticleNode.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "render/fbo/ZuFboObject.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/WireRecord.h"

#include <GLES2/gl2.h>

#include <memory>
#include <vector>

namespace {

const int kSize = 64;

class ParticleNodeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        push(new ZuOperateCreateLogicScene(app, "pt", kSize, kSize, kSize, kSize, SCALE_MODE_FULL));
        frame();
        scene = app->getGlobalMgr()->getSceneMgr()->getScene("pt");
        ASSERT_NE(scene, nullptr);
        // A white image: the drawn colour is the particle's own.
        std::vector<uint8_t> white(4 * 4 * 4, 255);
        texture = new ZuTexture2D(app);
        texture->zuinit();
        texture->setwidth(4);
        texture->setheight(4);
        texture->setinformate(GL_RGBA);
        texture->setdataformate(GL_RGBA);
        texture->setData(white.data(), 0, false);
        texture->apply();
        texture->setbLoad(true);
    }
    void TearDown() override {
        if (texture) {
            texture->zudestroy();
            texture->release();
        }
        EngineTest::TearDown();
    }

    // One particle of 20 x 20 pixels at (x, y) for ten seconds, in one
    // colour; with alive false the emitter has already ended.
    ZuParticleNode* addParticle(float x, float y, const uint8_t (&rgba)[4], const char* blend, bool alive = true) {
        auto* node = dynamic_cast<ZuParticleNode*>(
            app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuParticleNode", "pt", "particle"));
        if (!node) return nullptr;
        auto* effect = new ZuParticleEffect(&app->getRandom());
        effect->zuinit(1);
        auto* point = new ZuParticleEmitterPoint();
        point->setEmitPos(x, y, 0);
        point->setParticleMinMaxLife(10, 10);
        if (!alive) point->setEmmitEndlife();
        effect->setEmitter(point);
        auto* color = new ZuParticleEffectorColor();
        color->setSrcColor(rgba[0], rgba[1], rgba[2], rgba[3]);
        color->setDstColor(rgba[0], rgba[1], rgba[2], rgba[3]);
        effect->addEffector(color);
        color->release();
        auto* scale = new ZuParticleEffectorScale();
        scale->setStartScale(0.08f); // of 250 pixels
        scale->setEndScale(0.08f);
        effect->addEffector(scale);
        scale->release();
        node->setTexture(texture);
        node->setEffect(effect, blend);
        scene->addChild(node);
        return node;
    }
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    static const uint8_t* at(const std::vector<uint8_t>& pixels, int x, int y) {
        return &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
    }

    ZuScene* scene = nullptr;
    ZuTexture2D* texture = nullptr;
};

} // namespace

TEST_F(ParticleNodeTest, AQuadIsDrawnWhereTheEffectPutsItAndNowhereElse) {
    const uint8_t green[4] = {0, 255, 0, 255};
    ZuParticleNode* node = addParticle(20, 40, green, "normal");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getRenderOrder(), 11);
    frame();
    ASSERT_EQ(node->getEffect()->getLiveCount(), 1);
    const std::vector<uint8_t> pixels = scenePixels();
    int greenCount = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const uint8_t* p = at(pixels, x, y);
            if (p[1] < 200 || p[0] > 50 || p[2] > 50) continue;
            ++greenCount;
            EXPECT_TRUE(x >= 10 && x < 30 && y >= 30 && y < 50) << "green at " << x << "," << y;
        }
    EXPECT_EQ(greenCount, 20 * 20);
}

TEST_F(ParticleNodeTest, AddAndNormalBlendDifferOnHalfTransparentParticles) {
    // "normal" takes the colour as premultiplied; "add" weighs it by alpha.
    const uint8_t halfRed[4] = {255, 0, 0, 128};
    addParticle(16, 32, halfRed, "normal");
    addParticle(48, 32, halfRed, "add");
    frame();
    const std::vector<uint8_t> pixels = scenePixels();
    EXPECT_NEAR(at(pixels, 16, 32)[0], 255, 2);
    EXPECT_NEAR(at(pixels, 48, 32)[0], 128, 2);
}

TEST_F(ParticleNodeTest, AnEffectWithNothingAliveDrawsNothing) {
    const uint8_t green[4] = {0, 255, 0, 255};
    ZuParticleNode* node = addParticle(32, 32, green, "normal", false);
    ASSERT_NE(node, nullptr);
    frame();
    EXPECT_EQ(node->getEffect()->getPtNum(), 0);
    const std::vector<uint8_t> pixels = scenePixels();
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) ASSERT_LT(at(pixels, x, y)[1], 200) << x << "," << y;
}

namespace {

// One FP face of this scene: points not named sit at (32, 60).
std::vector<uint8_t> faceRecord(const LandmarkMap& points) {
    return fpFaceRecord(points, {32.0f, 60.0f}, {0, 0, kSize, kSize});
}

// Centre of the green pixels, or (-1, -1) when there are none.
std::pair<int, int> greenCentre(const std::vector<uint8_t>& pixels) {
    long sx = 0, sy = 0, n = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
            if (p[1] > 200 && p[0] < 50 && p[2] < 50) sx += x, sy += y, ++n;
        }
    return n ? std::make_pair(static_cast<int>(sx / n), static_cast<int>(sy / n)) : std::make_pair(-1, -1);
}

} // namespace

// An emitter bound to a landmark keeps its point on that landmark: the
// particles move with the face, and stay where they were while it is away.
TEST_F(ParticleNodeTest, AnEmitterBoundToALandmarkFollowsTheFace) {
    Camera* camera = app->getGlobalMgr()->getConfig()->getCamera("pt");
    camera->width = camera->height = kSize;  // records are turned into this frame
    camera->angle = 0;
    app->getAppInter()->setDetectType(DETECTTYPE_FP);
    frame();
    const uint8_t green[4] = {0, 255, 0, 255};
    ZuParticleNode* node = addParticle(5, 5, green, "normal");
    ASSERT_NE(node, nullptr);
    // The emitter wakes its particle at its rate, within a few frames.
    for (int i = 0; i < 100 && node->getEffect()->getLiveCount() == 0; ++i) frame();
    ASSERT_EQ(node->getEffect()->getLiveCount(), 1);
    const int mouth = 22;  // standard index of the inner lip, lower centre
    node->setpersonID(1);
    node->bindToLandmark(mouth, 5, 5);
    const int bound = app->getGlobalMgr()->getDetectMgr()->getDetect()->transformIndex(mouth);
    auto showFaceWithMouthAt = [&](float x, float yDown) {
        const std::vector<uint8_t> record = faceRecord({{bound, {x, yDown}}});
        for (int i = 0; i < 3; ++i) {
            app->getAppInter()->setDetectData("pt", record.data(), static_cast<int>(record.size()));
            frame();
        }
    };
    showFaceWithMouthAt(20.0f, 44.0f);  // y up in the scene: 64 - 44 = 20
    std::pair<int, int> at = greenCentre(scenePixels());
    EXPECT_NEAR(at.first, 20, 1);
    EXPECT_NEAR(at.second, 20, 1);
    showFaceWithMouthAt(44.0f, 24.0f);  // the face moves up and right
    at = greenCentre(scenePixels());
    EXPECT_NEAR(at.first, 44, 1);
    EXPECT_NEAR(at.second, 40, 1);
    // The face leaves: the particles stay where it was last seen.
    const std::vector<uint8_t> none(4, 0);
    app->getAppInter()->setDetectData("pt", none.data(), static_cast<int>(none.size()));
    for (int i = 0; i < 5; ++i) frame();
    at = greenCentre(scenePixels());
    EXPECT_NEAR(at.first, 44, 1);
    EXPECT_NEAR(at.second, 40, 1);
}

// An item with a trigger holds its effect until the trigger's event passes
// (an open mouth) and holds it again on the terminator's (a shut mouth);
// particles already alive live out their lives.
TEST_F(ParticleNodeTest, ATriggeredEffectEmitsOnlyBetweenItsStartAndStopEvents) {
    const uint8_t green[4] = {0, 255, 0, 255};
    ZuParticleNode* node = addParticle(20, 40, green, "normal");
    ASSERT_NE(node, nullptr);
    node->setresUID(7);
    node->getTriggers().pushEventToStartList(ZuTriggerLists::makeTriggerPattern("mouthopen", "", "", "pt", 1, 7));
    node->getTriggers().pushEventToStopList(ZuTriggerLists::makeTriggerPattern("mouthclose", "", "", "pt", 1, 7));
    node->holdUntilTriggered();
    // Thirty frames a second however fast this machine draws them: the
    // emitter owes a particle only once 10 ms have passed.
    auto micros = std::make_shared<int64_t>(0);
    app->setClock([micros] {
        *micros += 33333;
        return ZuAppMain::WallTime{*micros / 1000000, *micros % 1000000};
    });
    for (int i = 0; i < 20; ++i) frame();
    EXPECT_EQ(node->getEffect()->getLiveCount(), 0);

    ZuEvent* opened = ZuTriggerLists::makeTriggerPattern("mouthopen", "", "", "pt", 1, 7);
    node->procEvent(opened);
    opened->release();
    frame();
    EXPECT_EQ(node->getEffect()->getLiveCount(), 1);
    EXPECT_TRUE(node->getEffect()->isEmitting());

    ZuEvent* shut = ZuTriggerLists::makeTriggerPattern("mouthclose", "", "", "pt", 1, 7);
    node->procEvent(shut);
    shut->release();
    EXPECT_FALSE(node->getEffect()->isEmitting());
    frame();
    EXPECT_EQ(node->getEffect()->getLiveCount(), 1);  // alive until its ten seconds are up
}
