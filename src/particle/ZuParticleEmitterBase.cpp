#include "particle/ZuParticleEmitterBase.h"

#include "particle/ZuParticle.h"
#include "particle/ZuParticleEffect.h"

bool ZuParticleEmitterBase::update(float dt) {
    curLifeTime += dt;
    return !(selfMaxLife > 0.0f && curLifeTime > selfMaxLife);
}

void ZuParticleEmitterBase::setMinAndMaxRotation(int min, int max) {
    minRotation = 360 - min;
    maxRotation = 360 - max;
}

void ZuParticleEmitterBase::setMinAndMaxPalstance(int min, int max) {
    minPalstance = min;
    maxPalstance = max;
}

void ZuParticleEmitterBase::setParticleMinMaxLife(float min, float max) {
    minLife = min;
    maxLife = max;
}

int ZuParticleEmitterBase::generate(ZuParticleEffect* effect, float dt) {
    if (emitEnd || !effect || !random) return 0;
    const float due = static_cast<float>(generateSpeed) * (genAccum + dt);
    // Far past any pool: keeps the conversion to int defined.
    const int num = due >= 1e6f ? 1000000 : static_cast<int>(due);
    if (num < 1)
        genAccum += dt;
    else
        genAccum = 0.0f; // the fraction is dropped once a particle is made
    const int count = effect->_applyNullPartilce(num);
    const int* taken = effect->getTaken();
    for (int i = 0; i < count; ++i) {
        ZuParticle* particle = effect->getParticle(taken[i]);
        _assembleParticleLife(particle);
        _assembleParticleBase(particle);
    }
    return count;
}

void ZuParticleEmitterBase::_assembleParticleLife(ZuParticle* particle) {
    particle->alive = true;
    particle->param.lifeTime = 0.0f;
    particle->param.maxLife = ZuParticle::getRandNumFloat(*random, minLife, maxLife);
    particle->param.angle = ZuParticle::getRandNum(*random, minRotation, maxRotation);
    particle->param.speed = particleSpeed;
    particle->param.palstance = ZuParticle::getRandNum(*random, minPalstance, maxPalstance);
}
