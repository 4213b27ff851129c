#pragma once

#include "particle/ZuParticleEmitterBase.h"

// Particles start anywhere in a disc.
class ZuParticleEmitterCircle : public ZuParticleEmitterBase {
public:
    void setEmitCircle(float px, float py, float r);
    void _assembleParticleBase(ZuParticle* particle) override;

private:
    float x = 0, y = 0, z = 0, radius = 0;
};
