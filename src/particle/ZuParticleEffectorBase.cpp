#include "particle/ZuParticleEffectorBase.h"

#include "particle/ZuParticle.h"

float ZuParticleEffectorBase::lifeRatio(const ZuParticle* particle) {
    const ParticleParam& p = particle->param;
    if (!(p.maxLife > 0.0f)) return 1.0f;
    const float t = p.lifeTime / p.maxLife;
    return t < 0.0f ? 0.0f : (t > 1.0f ? 1.0f : t);
}
