#pragma once

#include "particle/ZuParticleEmitterBase.h"

// Particles start on a circle.
class ZuParticleEmitterRing : public ZuParticleEmitterBase {
public:
    void setEmitRing(float px, float py, float r);
    void _assembleParticleBase(ZuParticle* particle) override;

private:
    float x = 0, y = 0, z = 0, radius = 0;
};
