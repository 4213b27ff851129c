#include "particle/ZuParticleEmitterRectangle.h"

#include "particle/ZuParticle.h"

#include <cmath>

void ZuParticleEmitterRectangle::setEmitRectangle(float px, float py, float width, float height) {
    x = px;
    y = py;
    w = width;
    // The height is given downwards; positions grow upwards.
    h = -height;
}

void ZuParticleEmitterRectangle::_assembleParticleBase(ZuParticle* particle) {
    ParticleParam& p = particle->param;
    p.posX = ZuParticle::getRandNumFloat(*random, x, x + w);
    p.posY = ZuParticle::getRandNumFloat(*random, y, y + h);
    p.posZ = z;
    p.rotX = p.rotY = p.rotZ = 0.0f;
    p.scaleX = p.scaleY = 1.0f;
}
