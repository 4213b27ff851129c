#pragma once

#include "particle/ZuParticleEffectorBase.h"

// Pulls particles down (y grows upwards) by a constant.
class ZuParticleEffectorGravity : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;
    void setGravity(float value) { gravity = -value; }

private:
    float gravity = -10;
};
