#include "particle/ZuParticle.h"

#include "basesys/ZuRandom.h"
#include "particle/ZuParticleMat.h"

#include <cstring>

namespace {

const ZuParticleVertex kQuad[ZuParticle::kVertexCount] = {
    {-0.5f, -0.5f, {255, 255, 255, 255}, 0.0f, 0.0f}, {0.5f, -0.5f, {255, 255, 255, 255}, 1.0f, 0.0f},
    {-0.5f, 0.5f, {255, 255, 255, 255}, 0.0f, 1.0f},  {-0.5f, 0.5f, {255, 255, 255, 255}, 0.0f, 1.0f},
    {0.5f, -0.5f, {255, 255, 255, 255}, 1.0f, 0.0f},  {0.5f, 0.5f, {255, 255, 255, 255}, 1.0f, 1.0f},
};

} // namespace

ZuParticle::ZuParticle() { std::memcpy(vertices, kQuad, sizeof(vertices)); }

const ZuParticleVertex* ZuParticle::quadTemplate() { return kQuad; }

void ZuParticle::update(float dt) {
    param.lifeTime += dt;
    if (param.lifeTime >= param.maxLife) {
        alive = false;
        std::memcpy(vertices, kQuad, sizeof(vertices));
        return;
    }
    refreshPos(dt);
    refreshpoint();
}

void ZuParticle::datadead() {
    param.reset();
    std::memcpy(vertices, kQuad, sizeof(vertices));
}

void ZuParticle::refreshPos(float dt) {
    param.posX += param.velocityX * dt + param.accelX * dt * dt / 2.0f;
    param.posY += param.velocityY * dt + param.accelY * dt * dt / 2.0f;
    param.velocityX += param.accelX * dt;
    param.velocityY += param.accelY * dt;
}

void ZuParticle::refreshpoint() {
    ZuParticleMat mat;
    mat.setPos(param.posX, param.posY, param.posZ);
    mat.setScale(param.scaleX, param.scaleY, 1.0f);
    mat.setRot(param.rotX, param.rotY, param.rotZ);
    mat.refresh();
    for (int i = 0; i < kVertexCount; ++i) {
        mat.transform2(kQuad[i].x, kQuad[i].y, &vertices[i].x, &vertices[i].y);
        std::memcpy(vertices[i].color, param.color, 4);
    }
}

int ZuParticle::getRandNum(ZuRandom& random, int a, int b) { return random.rangeInt(a, b); }

namespace {
// Thousandths of larger values would not fit an int.
float drawable(float v) {
    if (!(v == v)) return 0.0f;
    return v < -2e6f ? -2e6f : (v > 2e6f ? 2e6f : v);
}
} // namespace

int ZuParticle::getRandIntByFloat(ZuRandom& random, float a, float b) {
    return random.rangeInt(static_cast<int>(drawable(a)), static_cast<int>(drawable(b)));
}


float ZuParticle::getRandNumFloat(ZuRandom& random, float a, float b) {
    return random.rangeFloatGrain(drawable(a), drawable(b));
}
