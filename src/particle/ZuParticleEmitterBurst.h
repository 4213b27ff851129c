#pragma once

#include "particle/ZuParticleEmitterBase.h"

// Waves instead of a rate: each tick wakes up to perWave particles on one
// point, the i-th going out at angleStart + i * spacing degrees, all with the
// same life and spin. Later waves fill what has come free.
class ZuParticleEmitterBurst : public ZuParticleEmitterBase {
public:
    void setEmitBurst(float px, float py, float wave, float step, float start);
    int generate(ZuParticleEffect* effect, float dt) override;
    void _assembleParticleBase(ZuParticle* particle) override;

private:
    float x = 0, y = 0, z = 0;
    float perWave = 0, spacing = 0, angleStart = 0;
    float waveLife = 0;
    int waveIndex = 0;
    int wavePalstance = 0;
};
