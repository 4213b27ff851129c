// The "particle" item: parameter files read as their keys' types allow, a
// package built into particle nodes that draw, and bad numbers that end in
// a log line and a bounded pool instead of a crash.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuGlobalMgr.h"
#include "parse/ZuParseParticle.h"
#include "particle/ZuParticle.h"
#include "particle/ZuParticleEffect.h"
#include "particle/ZuParticleEmitterBase.h"
#include "particle/ZuParticleNode.h"
#include "render/fbo/ZuFboObject.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <unistd.h>

namespace {

ZuParticleConfig mode(const std::string& json) {
    ZuParticleConfig config;
    EXPECT_TRUE(ZuParseParticle::parseModeText(&config, json.data(), json.size())) << json;
    return config;
}

} // namespace

TEST(ParticleConfig, KeysAreTakenOnlyInTheirOwnType) {
    ZuParticleConfig c = mode(R"({
        "alpha": {"start": 1, "end": 0},
        "scale": {"start": 0.2, "end": 1, "minimumScaleMultiplier": 0.5},
        "color": {"start": "#ff8000", "end": "00ff10"},
        "speed": {"start": 200, "end": 50, "speed_minimumScaleMultiplier": 0.25},
        "acceleration": {"x": 0, "y": -100},
        "maxSpeed": true,
        "startRotation": {"min": 10, "max": 80},
        "rotationSpeed": {"min": -30, "max": "30"},
        "lifetime": {"min": 1, "max": 3},
        "blendMode": "add",
        "frequency": 0.3,
        "emitterLifetime": -1,
        "maxParticles": 500,
        "spawnType": "circle",
        "spawnCircle": {"r": 12.5, "minR": 2},
        "particlesPerWave": 8,
        "angleStart": 1.0
    })");
    EXPECT_EQ(c.alphaStart, 1);
    EXPECT_FLOAT_EQ(c.scaleEnd, 1.0f); // "number" keys take whole numbers too
    EXPECT_EQ(c.colorStart, "#ff8000");
    EXPECT_EQ(c.speedStart, 200);
    EXPECT_FLOAT_EQ(c.speedMinScaleMultiplier, 0.25f);
    EXPECT_EQ(c.accelY, -100);
    EXPECT_EQ(c.maxSpeed, 1);
    EXPECT_EQ(c.rotationSpeedMin, -30);
    EXPECT_EQ(c.rotationSpeedMax, 0); // text where an int belongs reads as absent
    EXPECT_EQ(c.lifetimeMax, 3);
    EXPECT_FLOAT_EQ(c.frequency, 0.3f);
    EXPECT_EQ(c.emitterLifetime, -1);
    EXPECT_EQ(c.spawnType, "circle");
    EXPECT_FLOAT_EQ(c.circleR, 12.5f);
    EXPECT_FLOAT_EQ(c.particlesPerWave, 0.0f); // a whole number is not a floating-point key
    EXPECT_FLOAT_EQ(c.angleStart, 1.0f);
    EXPECT_EQ(mode(R"({"frequency": 1})").frequency, 0.0f);
    EXPECT_EQ(mode(R"({"maxSpeed": 1})").maxSpeed, 0);

    ZuParticleConfig untouched;
    const std::string broken = R"({"frequency": 0.5,)";
    EXPECT_FALSE(ZuParseParticle::parseModeText(&untouched, broken.data(), broken.size()));
    EXPECT_EQ(untouched.frequency, 0.0f);

    int rgb[3];
    ZuParseParticle::parseColor("#ff8000", rgb);
    EXPECT_EQ(rgb[0] * 65536 + rgb[1] * 256 + rgb[2], 0xff8000);
    ZuParseParticle::parseColor("ff8000", rgb);
    EXPECT_EQ(rgb[0] * 65536 + rgb[1] * 256 + rgb[2], 0xff8000);
    ZuParseParticle::parseColor("abc", rgb);
    EXPECT_EQ(rgb[0] + rgb[1] + rgb[2], 0);
}

TEST(ParticleConfig, RecordsBecomeEffectsWithTheirRatesAndLimits) {
    ZuAppMain* app = new ZuAppMain();
    LogCapture log;
    {
        ZuParticleConfig c = mode(R"({"spawnType": "point", "frequency": 0.01, "emitterLifetime": -1,
                                     "lifetime": {"min": 1, "max": 2}, "maxParticles": 9000})");
        ZuParticleEffect* effect = ZuParseParticle::buildEffect(app, c);
        EXPECT_EQ(effect->getCapacity(), 3000);
        EXPECT_EQ(effect->getEmitter()->getGenerateSpeed(), 100);
        EXPECT_EQ(effect->getEmitter()->getSelfMaxlifeTime(), 0.0f);
        for (int i = 0; i < 10; ++i) effect->update(0.05f);
        EXPECT_GT(effect->getLiveCount(), 40);
        delete effect;
    }
    {
        // A frequency of 0, no life, a negative pool, no spawn type: each is
        // refused or bounded, and nothing is drawn.
        for (const char* json : {R"({"spawnType": "rect", "frequency": 0.0, "maxParticles": 10})",
                                 R"({"spawnType": "ring", "frequency": 0.1, "maxParticles": -5})",
                                 R"({"spawnType": "burst", "particlesPerWave": 1e300, "maxParticles": 2147483647})",
                                 R"({"spawnType": "fountain", "frequency": 0.1, "maxParticles": 10})"}) {
            ZuParticleEffect* effect = ZuParseParticle::buildEffect(app, mode(json));
            EXPECT_LE(effect->getCapacity(), 3000);
            for (int i = 0; i < 5; ++i) effect->update(0.1f);
            EXPECT_LE(effect->getLiveCount(), effect->getCapacity());
            delete effect;
        }
        EXPECT_GT(log.count("die at birth"), 0);
        EXPECT_GT(log.count("unknown"), 0);
        EXPECT_GT(log.count("capped"), 0);
    }
    app->release();
}

namespace {

class ParticlePackageTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        app->addRespath(dir.path().c_str());
        app->initZuBase();
        app->getRandom().setSeed(7);
        app->getAppInter()->createLogicSceneFull("s", 64, 64, 64, 64);
        frame();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void frame() {
        app->getGlobalMgr()->update(33.0f);
        app->directrender("");
    }

    TempDir dir;
    ZuAppMain* app = nullptr;
};

} // namespace

TEST_F(ParticlePackageTest, APackageItemDrawsItsEmitters) {
    dir.write("fx/config.json", R"({"version": 2, "param": [
        {"type": "particle", "id": "sparks", "particle_name": "list"}]})");
    dir.write("fx/list.json", R"([
        {"id": 1, "emitterName": "spark", "particleName": "p", "emmitterPos": {"x": "32", "y": "32"}, "index": 22},
        "skipped",
        {"id": 2, "emitterName": "missing", "emmitterPos": {"x": "5", "y": "5"}}])");
    dir.write("fx/spark.json", R"({"alpha": {"start": 1, "end": 1}, "scale": {"start": 0.04, "end": 0.04},
        "color": {"start": "#00ff00", "end": "#00ff00"}, "speed": {"start": 0, "end": 0},
        "lifetime": {"min": 5, "max": 5}, "frequency": 0.01, "maxParticles": 4,
        "blendMode": "normal", "spawnType": "point"})");
    // Images are looked for on the load thread, so the log is watched from
    // the moment the package is asked for.
    LogCapture log;
    app->getAppInter()->loadEffect("s", "fx", 5, 1);
    ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
    ZuParticleNode* node = nullptr;
    for (int i = 0; i < 200 && !node; ++i) {
        frame();
        node = dynamic_cast<ZuParticleNode*>(nodes->getNode("s_sparks_1_5"));
        usleep(2000);
    }
    ASSERT_NE(node, nullptr);
    for (int i = 0; i < 10; ++i) frame();
    // The image look-ups finish on the load thread in their own time.
    for (int i = 0; i < 500 && log.count("", ZU_LOG_WARN) < 2; ++i) {
        frame();
        usleep(2000);
    }
    EXPECT_EQ(node->getEffect()->getLiveCount(), 4);
    EXPECT_EQ(node->getBlendMode(), "normal");
    EXPECT_EQ(node->getresUID(), 5);
    EXPECT_EQ(node->getBindIndex(), 22);  // rides on the lower inner lip
    // The second emitter has no parameter file: its node stands and draws
    // nothing.
    auto* empty = dynamic_cast<ZuParticleNode*>(nodes->getNode("s_sparks_2_5"));
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->getEffect()->getPtNum(), 0);
    // A missing image is the one thing reported, once per image.
    EXPECT_EQ(log.count("spark.png", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("", ZU_LOG_WARN), 2) << ::testing::PrintToString(log.lines());
}
