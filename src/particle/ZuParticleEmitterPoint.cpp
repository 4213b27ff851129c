#include "particle/ZuParticleEmitterPoint.h"

#include "particle/ZuParticle.h"

#include <cmath>

void ZuParticleEmitterPoint::setEmitPos(float px, float py, float pz) {
    x = px;
    y = py;
    z = pz;
}

void ZuParticleEmitterPoint::_assembleParticleBase(ZuParticle* particle) {
    ParticleParam& p = particle->param;
    p.posX = x;
    p.posY = y;
    p.posZ = z;
    p.rotX = p.rotY = p.rotZ = 0.0f;
    p.scaleX = p.scaleY = 1.0f;
}
