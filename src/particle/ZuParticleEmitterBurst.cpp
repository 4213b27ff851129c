#include "particle/ZuParticleEmitterBurst.h"

#include "particle/ZuParticle.h"
#include "particle/ZuParticleEffect.h"

void ZuParticleEmitterBurst::setEmitBurst(float px, float py, float wave, float step, float start) {
    x = px;
    y = py;
    // NaN or a huge count would make the int conversion undefined; the pool
    // caps a wave anyway.
    perWave = wave >= 0.0f ? (wave < 1e6f ? wave : 1e6f) : 0.0f;
    spacing = step;
    angleStart = start;
}

int ZuParticleEmitterBurst::generate(ZuParticleEffect* effect, float) {
    if (emitEnd || !effect || !random) return 0;
    const int count = effect->_applyNullPartilce(static_cast<int>(perWave));
    if (count == 0) return 0;
    waveLife = ZuParticle::getRandNumFloat(*random, minLife, maxLife);
    wavePalstance = ZuParticle::getRandNum(*random, minPalstance, maxPalstance);
    const int* taken = effect->getTaken();
    for (int i = 0; i < count; ++i) {
        ZuParticle* particle = effect->getParticle(taken[i]);
        particle->alive = true;
        particle->param.lifeTime = 0.0f;
        particle->param.maxLife = waveLife;
        particle->param.angle = static_cast<int>(-(angleStart + static_cast<float>(i) * spacing));
        particle->param.speed = particleSpeed;
        particle->param.palstance = wavePalstance;
        _assembleParticleBase(particle);
    }
    ++waveIndex;
    return count;
}

void ZuParticleEmitterBurst::_assembleParticleBase(ZuParticle* particle) {
    ParticleParam& p = particle->param;
    p.posX = x;
    p.posY = y;
    p.posZ = z;
    p.rotX = p.rotY = p.rotZ = 0.0f;
    p.scaleX = p.scaleY = 1.0f;
}
