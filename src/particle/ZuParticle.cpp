#include "particle/ZuParticle.h"

#include "basesys/ZuRandom.h"
#include "particle/ZuParticleMat.h"

#include <cmath>
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
    float m0, m1, m4, m5;
    if (param.rotX == 0.0f && param.rotY == 0.0f) {
        // The flat case of every 2D effect: scale then turn about z, the
        // same numbers the full matrix gives, without its products by zero.
        const float rad = param.rotZ * 0.01745f;
        const float c = param.rotZ == 0.0f ? 1.0f : std::cos(rad);
        const float s = param.rotZ == 0.0f ? 0.0f : std::sin(rad);
        m0 = param.scaleX * c;
        m1 = param.scaleX * s;
        m4 = -param.scaleY * s;
        m5 = param.scaleY * c;
    } else {
        ZuParticleMat mat;
        mat.setScale(param.scaleX, param.scaleY, 1.0f);
        mat.setRot(param.rotX, param.rotY, param.rotZ);
        mat.refresh();
        m0 = mat.data()[0];
        m1 = mat.data()[1];
        m4 = mat.data()[4];
        m5 = mat.data()[5];
    }
    for (int i = 0; i < kVertexCount; ++i) {
        const float x = kQuad[i].x, y = kQuad[i].y;
        vertices[i].x = m0 * x + m4 * y + param.posX;
        vertices[i].y = m1 * x + m5 * y + param.posY;
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
