#pragma once

#include "particle/ZuParticleEmitterBase.h"

// Every particle starts on one point.
class ZuParticleEmitterPoint : public ZuParticleEmitterBase {
public:
    void setEmitPos(float px, float py, float pz);
    void _assembleParticleBase(ZuParticle* particle) override;

private:
    float x = 0, y = 0, z = 0;
};
