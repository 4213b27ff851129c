#pragma once

#include "particle/ZuParticleEmitterBase.h"

// Particles start anywhere in a rectangle whose top-left corner is (x, y), y up.
class ZuParticleEmitterRectangle : public ZuParticleEmitterBase {
public:
    void setEmitRectangle(float px, float py, float width, float height);
    void _assembleParticleBase(ZuParticle* particle) override;

private:
    float x = 0, y = 0, z = 0, w = 0, h = 0;
};
