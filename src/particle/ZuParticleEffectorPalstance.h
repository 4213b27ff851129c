#pragma once

#include "particle/ZuParticleEffectorBase.h"

// Spins a particle at its own palstance (degrees a second, clockwise).
class ZuParticleEffectorPalstance : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;
};
