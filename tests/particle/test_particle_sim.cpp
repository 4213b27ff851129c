// The particle simulation against a plain reimplementation of its rules: with
// one seed, counts, corners and colours agree tick by tick; bursts go out at
// their fixed angle steps; rates, deaths and slot reuse follow the pool's
// bookkeeping; bad settings are refused without harm.
#include "basesys/ZuRandom.h"
#include "particle/ZuParticle.h"
#include "particle/ZuParticleEffect.h"
#include "particle/ZuParticleEffectorColor.h"
#include "particle/ZuParticleEffectorColorQuene.h"
#include "particle/ZuParticleEffectorPalstance.h"
#include "particle/ZuParticleEffectorScale.h"
#include "particle/ZuParticleEffectorVelocity.h"
#include "particle/ZuParticleEmitterBurst.h"
#include "particle/ZuParticleEmitterCircle.h"
#include "particle/ZuParticleEmitterPoint.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace {

const uint64_t kSeed = 20261123;

template <class T> T* addEffector(ZuParticleEffect& effect, T* effector) {
    effect.addEffector(effector);
    effector->release();
    return effector;
}

const ZuParticleVertex* vertexAt(const ZuParticleEffect& effect, int particle, int corner) {
    return reinterpret_cast<const ZuParticleVertex*>(effect.getData()) + particle * 6 + corner;
}

// The rules written out again, plainly: a circle emitter at a rate, a
// launch whose speed ramps over the life, a colour fade, a shrinking scale
// and a spin.
struct Reference {
    struct P {
        bool alive = false;
        float x = 0, y = 0, vx = 0, vy = 0, life = 0, maxLife = 0, rot = 0, size = 0, sizeMul = 0, speedMul = 0;
        int angle = 0, spin = 0;
        uint8_t rgba[4] = {255, 255, 255, 255};
        float corners[6][2] = {};
    };
    static constexpr float cx = 100, cy = 200, radius = 30, rate = 50;
    static constexpr float speedStart = 80, speedEnd = 20, minSpeedMul = 0.5f;
    static constexpr float scaleStart = 0.1f, scaleEnd = 0.05f, minScaleMul = 0.5f;
    const uint8_t from[4] = {255, 0, 0, 255}, to[4] = {0, 0, 255, 0};

    explicit Reference(int n) : pool(n), random(kSeed) {
        for (int i = 0; i < n; ++i) freeSlots.push_back(i);
    }
    float ratio(const P& p) const { return std::fmin(std::fmax(p.life / p.maxLife, 0.0f), 1.0f); }
    void launch(P& p, float speed) {
        const double a = static_cast<double>(p.angle % 360) / 180.0 * M_PI;
        p.vx = static_cast<float>(std::cos(a) * speed) * p.speedMul;
        p.vy = static_cast<float>(std::sin(a) * speed) * p.speedMul;
    }
    void tick(float dt) {
        int due = static_cast<int>(rate * (carry + dt));
        carry = due < 1 ? carry + dt : 0.0f;
        for (int k = 0; k < due && !freeSlots.empty(); ++k) {
            P& p = pool[freeSlots.front()];
            freeSlots.erase(freeSlots.begin());
            p = P();
            p.alive = true;
            p.maxLife = random.rangeFloatGrain(0.5f, 1.5f);
            p.angle = random.rangeInt(360, 0);
            p.spin = random.rangeInt(-90, 90);
            const float r = random.rangeFloatGrain(0, radius);
            const float a = random.rangeFloatGrain(0, 360) / 180.0f * 3.1415927f;
            p.x = cx + std::cos(a) * r;
            p.y = cy + std::sin(a) * r;
        }
        live = 0;
        freeSlots.clear();
        for (size_t i = 0; i < pool.size(); ++i) {
            P& p = pool[i];
            if (!p.alive) {
                p = P();
                freeSlots.push_back(static_cast<int>(i));
                continue;
            }
            ++live;
            if (p.life == 0) {
                p.speedMul = random.rangeFloatGrain(minSpeedMul, 1);
                launch(p, speedStart);
            } else {
                launch(p, speedStart + ratio(p) * (speedEnd - speedStart));
            }
            const float t = ratio(p);
            for (int c = 0; c < 4; ++c) p.rgba[c] = static_cast<uint8_t>(from[c] * (1 - t) + to[c] * t);
            if (p.life == 0) p.sizeMul = random.rangeFloatGrain(minScaleMul, 1);
            p.size = (scaleStart + t * (scaleEnd - scaleStart)) * p.sizeMul * 250;
            p.rot += 360 - p.spin * dt;
            p.life += dt;
            static const float unit[6][2] = {{-.5f, -.5f}, {.5f, -.5f}, {-.5f, .5f}, {-.5f, .5f}, {.5f, -.5f}, {.5f, .5f}};
            if (p.life >= p.maxLife) {
                p.alive = false;
                std::memcpy(p.corners, unit, sizeof(unit));
                continue;
            }
            p.x += p.vx * dt;
            p.y += p.vy * dt;
            const float c = std::cos(p.rot * 0.01745f), s = std::sin(p.rot * 0.01745f);
            for (int k = 0; k < 6; ++k) {
                p.corners[k][0] = unit[k][0] * p.size * c - unit[k][1] * p.size * s + p.x;
                p.corners[k][1] = unit[k][0] * p.size * s + unit[k][1] * p.size * c + p.y;
            }
        }
    }

    std::vector<P> pool;
    std::vector<int> freeSlots;
    ZuRandom random;
    float carry = 0;
    int live = 0;
};

} // namespace

TEST(ParticleEffect, MatchesThePlainSimulationTickByTick) {
    ZuRandom random(kSeed);
    ZuParticleEffect effect(&random);
    const int pool = 20; // small enough that the pool runs dry and slots are reused
    effect.zuinit(pool);
    auto* emitter = new ZuParticleEmitterCircle();
    emitter->setEmitCircle(Reference::cx, Reference::cy, Reference::radius);
    emitter->setGenerateSpeed(static_cast<int>(Reference::rate));
    emitter->setParticleMinMaxLife(0.5f, 1.5f);
    emitter->setMinAndMaxRotation(0, 360);
    emitter->setMinAndMaxPalstance(-90, 90);
    effect.setEmitter(emitter);
    auto* velocity = addEffector(effect, new ZuParticleEffectorVelocity());
    velocity->setUnuseAccelerat();
    velocity->setMinimumScaleMultiplier(Reference::minSpeedMul);
    velocity->setStartAndEndSpeed(Reference::speedStart, Reference::speedEnd);
    auto* color = addEffector(effect, new ZuParticleEffectorColor());
    color->setSrcColor(255, 0, 0, 255);
    color->setDstColor(0, 0, 255, 0);
    auto* scale = addEffector(effect, new ZuParticleEffectorScale());
    scale->setMinimumScaleMultiplier(Reference::minScaleMul);
    scale->setStartScale(Reference::scaleStart);
    scale->setEndScale(Reference::scaleEnd);
    addEffector(effect, new ZuParticleEffectorPalstance());

    Reference reference(pool);
    const float dt = 1.0f / 30.0f;
    int sawFull = 0;
    for (int tick = 0; tick < 120; ++tick) {
        effect.update(dt);
        reference.tick(dt);
        ASSERT_EQ(effect.getLiveCount(), reference.live) << "tick " << tick;
        ASSERT_EQ(effect.getPtNum(), reference.live * 6);
        ASSERT_EQ(effect.getDataLen(), reference.live * 120);
        sawFull += reference.live == pool;
        int drawn = 0;
        for (const Reference::P& p : reference.pool) {
            if (!p.alive && p.life == 0) continue; // waiting slots are not drawn
            for (int k = 0; k < 6; ++k) {
                const ZuParticleVertex* v = vertexAt(effect, drawn, k);
                ASSERT_NEAR(v->x, p.corners[k][0], 0.01f) << "tick " << tick << " particle " << drawn;
                ASSERT_NEAR(v->y, p.corners[k][1], 0.01f) << "tick " << tick << " particle " << drawn;
                const uint8_t* expected = p.alive ? p.rgba : ZuParticle::quadTemplate()[0].color;
                ASSERT_EQ(0, std::memcmp(v->color, expected, 4)) << "tick " << tick << " particle " << drawn;
            }
            ++drawn;
        }
        ASSERT_EQ(drawn, reference.live);
    }
    EXPECT_GT(sawFull, 0) << "the pool never ran dry: slot reuse was not exercised";
}

TEST(ParticleEffect, BurstWavesGoOutAtFixedAngleSteps) {
    ZuRandom random(kSeed);
    ZuParticleEffect effect(&random);
    effect.zuinit(8);
    auto* burst = new ZuParticleEmitterBurst();
    burst->setEmitBurst(50, 60, 8, 45, 10);
    burst->setParticleMinMaxLife(2, 2);
    effect.setEmitter(burst);
    auto* velocity = addEffector(effect, new ZuParticleEffectorVelocity());
    velocity->setUnuseAccelerat();
    velocity->setStartAndEndSpeed(100, 100);
    effect.update(0.1f);
    ASSERT_EQ(effect.getLiveCount(), 8);
    for (int i = 0; i < 8; ++i) {
        const ZuParticle* p = effect.getParticle(i);
        EXPECT_EQ(p->param.angle, -(10 + i * 45));
        EXPECT_FLOAT_EQ(p->param.maxLife, 2.0f);
        // Ten pixels out from the centre along the wave's own angle.
        const double a = -(10 + i * 45) * M_PI / 180.0;
        EXPECT_NEAR(p->param.posX, 50 + 10 * std::cos(a), 1e-3);
        EXPECT_NEAR(p->param.posY, 60 + 10 * std::sin(a), 1e-3);
    }
    // The pool is full: no second wave until the first has died.
    effect.update(0.1f);
    EXPECT_EQ(effect.getLiveCount(), 8);
}

TEST(ParticleEffect, RateEmissionCountsAndTheDroppedFraction) {
    ZuRandom random(kSeed);
    {
        // 20 a second for 10 seconds, in ticks that each make a whole particle.
        ZuParticleEffect effect(&random);
        effect.zuinit(3000);
        auto* point = new ZuParticleEmitterPoint();
        point->setGenerateSpeed(20);
        point->setParticleMinMaxLife(100, 100);
        effect.setEmitter(point);
        for (int i = 0; i < 200; ++i) effect.update(0.05f);
        EXPECT_NEAR(effect.getLiveCount(), 200, 1);
    }
    {
        // 100 a second in 4 ms ticks: nothing until a hundredth of a second
        // has gathered, then the fraction past the particle is dropped.
        ZuParticleEffect effect(&random);
        effect.zuinit(100);
        auto* point = new ZuParticleEmitterPoint();
        point->setParticleMinMaxLife(100, 100);
        effect.setEmitter(point);
        std::vector<int> live;
        for (int i = 0; i < 6; ++i) {
            effect.update(0.004f);
            live.push_back(effect.getLiveCount());
        }
        EXPECT_EQ(live, (std::vector<int>{0, 0, 1, 1, 1, 2}));
    }
    {
        // A rate of 0 and an emitter past its own life make nothing.
        ZuParticleEffect effect(&random);
        effect.zuinit(10);
        auto* point = new ZuParticleEmitterPoint();
        point->setGenerateSpeed(0);
        effect.setEmitter(point);
        for (int i = 0; i < 50; ++i) effect.update(0.1f);
        EXPECT_EQ(effect.getLiveCount(), 0);
        point->setGenerateSpeed(100);
        point->setSelfMaxlifeTime(1.0f);
        effect.update(0.1f);
        EXPECT_EQ(effect.getLiveCount(), 0);
    }
}

TEST(ParticleEffect, DeadParticlesShowTheTemplateOnceAndTheirSlotsComeBack) {
    ZuRandom random(kSeed);
    ZuParticleEffect effect(&random);
    effect.zuinit(5);
    auto* point = new ZuParticleEmitterPoint();
    point->setEmitPos(10, 20, 0);
    point->setGenerateSpeed(200);
    point->setParticleMinMaxLife(0.1f, 0.1f);
    effect.setEmitter(point);
    effect.update(0.05f);
    ASSERT_EQ(effect.getLiveCount(), 5);
    EXPECT_EQ(effect.getFreeCount(), 0);
    EXPECT_FLOAT_EQ(vertexAt(effect, 0, 0)->x, 9.5f);
    // The death tick: still drawn, as the plain quad at the origin.
    effect.update(0.05f);
    ASSERT_EQ(effect.getLiveCount(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(0, std::memcmp(vertexAt(effect, i, 0), ZuParticle::quadTemplate(), sizeof(ZuParticleVertex) * 6));
    effect.update(0.05f);
    EXPECT_EQ(effect.getLiveCount(), 0);
    EXPECT_EQ(effect.getFreeCount(), 5);
    effect.update(0.05f);
    EXPECT_EQ(effect.getLiveCount(), 5);
    EXPECT_FLOAT_EQ(effect.getParticle(4)->param.posX, 10.0f);
}

TEST(ParticleEffect, BadSettingsAreRefusedOrBounded) {
    ZuRandom random(kSeed);
    LogCapture log;
    ZuParticleEffect effect(&random);
    effect.zuinit(5000);
    EXPECT_EQ(effect.getCapacity(), 3000);
    EXPECT_EQ(effect.getMaxDataLen(), 3000 * 120);
    effect.zuinit(-4);
    EXPECT_EQ(effect.getCapacity(), 0);
    EXPECT_TRUE((log.count("refused") > 0));
    auto* point = new ZuParticleEmitterPoint();
    point->setParticleMinMaxLife(0, 0); // dies on its first update
    point->setSelfMaxlifeTime(-5);
    EXPECT_EQ(point->getSelfMaxlifeTime(), 0.0f);
    point->setMinAndMaxRotation(0, 90);
    EXPECT_EQ(point->getMinRotation(), 360);
    EXPECT_EQ(point->getMaxRotation(), 270);
    effect.setEmitter(point);
    effect.update(0.1f); // an empty pool takes nothing
    EXPECT_EQ(effect.getLiveCount(), 0);
    effect.zuinit(4); // a new pool under the same emitter
    effect.update(0.1f);
    EXPECT_EQ(effect.getLiveCount(), 4); // born and dead in one tick: drawn as the template
    EXPECT_FALSE(effect.getParticle(0)->alive);

    ZuParticleEffectorScale scale;
    scale.setMinimumScaleMultiplier(-1);
    ZuParticleEffectorVelocity velocity;
    velocity.setMinimumScaleMultiplier(-1);
    EXPECT_TRUE((log.count("粒子scale不能为负数") > 0));
    EXPECT_TRUE((log.count("速度倍数不能为负数") > 0));
    ZuParticleEffectorColorQuene queue;
    queue.pushColor(1, 2, 3, 4, 0.5f);
    queue.pushColor(1, 2, 3, 4, -1);
    EXPECT_EQ(queue.getStopCount(), 0u);
    EXPECT_TRUE((log.count("time must be = 0") > 0));
    EXPECT_EQ(ZuParticle::getRandNumFloat(random, 0.5f, 0.5f), 0.5f);
}

TEST(ParticleEffect, ColourQueueMixesTheStopsAroundTheAge) {
    ZuParticleEffectorColorQuene queue;
    queue.pushColor(0, 0, 0, 255, 0);
    queue.pushColor(200, 100, 0, 255, 0.5f);
    queue.pushColor(200, 100, 250, 0, 1.0f);
    ZuParticle p;
    p.param.maxLife = 2;
    p.param.lifeTime = 0.5f; // a quarter: half way to the second stop
    queue.exec(&p, 0);
    EXPECT_EQ(p.param.color[0], 100);
    EXPECT_EQ(p.param.color[1], 50);
    p.param.lifeTime = 1.5f;
    queue.exec(&p, 0);
    EXPECT_EQ(p.param.color[2], 125);
    EXPECT_EQ(p.param.color[3], 127);
    queue.setLerp(false);
    queue.exec(&p, 0);
    EXPECT_EQ(p.param.color[2], 0);
}
