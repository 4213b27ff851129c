#include "particle/ZuParticleEmitterCircle.h"

#include "particle/ZuParticle.h"

#include <cmath>

void ZuParticleEmitterCircle::setEmitCircle(float px, float py, float r) {
    x = px;
    y = py;
    radius = r;
}

void ZuParticleEmitterCircle::_assembleParticleBase(ZuParticle* particle) {
    ParticleParam& p = particle->param;
    const float r = ZuParticle::getRandNumFloat(*random, 0.0f, radius);
    const float a = ZuParticle::getRandNumFloat(*random, 0.0f, 360.0f) / 180.0f * 3.1415927f;
    p.posX = x + std::cos(a) * r;
    p.posY = y + std::sin(a) * r;
    p.posZ = z;
    p.rotX = p.rotY = p.rotZ = 0.0f;
    p.scaleX = p.scaleY = 1.0f;
}
