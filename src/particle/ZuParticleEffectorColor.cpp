#include "particle/ZuParticleEffectorColor.h"

#include "particle/ZuParticle.h"

void ZuParticleEffectorColor::setSrcColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    src[0] = r;
    src[1] = g;
    src[2] = b;
    src[3] = a;
}

void ZuParticleEffectorColor::setDstColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    dst[0] = r;
    dst[1] = g;
    dst[2] = b;
    dst[3] = a;
}

void ZuParticleEffectorColor::exec(ZuParticle* particle, float) {
    const float t = lifeRatio(particle);
    for (int c = 0; c < 4; ++c)
        particle->param.color[c] = static_cast<uint8_t>(src[c] * (1.0f - t) + dst[c] * t);
}
