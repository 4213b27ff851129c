#include "particle/ZuParticleEffectorGravity.h"

#include "particle/ZuParticle.h"

void ZuParticleEffectorGravity::exec(ZuParticle* particle, float dt) {
    ParticleParam& p = particle->param;
    p.posY += p.velocityY * dt + gravity * dt * dt / 2.0f;
    p.velocityY += gravity * dt;
}
