#include "particle/ZuParticleEffectorScale.h"

#include "particle/ZuParticle.h"
#include "platform/ZuLog.h"

void ZuParticleEffectorScale::setMinimumScaleMultiplier(float multiplier) {
    if (multiplier < 0.0f) {
        QZLOGW("粒子scale不能为负数");
        return;
    }
    minMultiplier = multiplier;
}

void ZuParticleEffectorScale::exec(ZuParticle* particle, float) {
    ParticleParam& p = particle->param;
    if (p.lifeTime == 0.0f && random) p.scaleMultiplier = ZuParticle::getRandNumFloat(*random, minMultiplier, 1.0f);
    const float s = (startScale + lifeRatio(particle) * (endScale - startScale)) * p.scaleMultiplier * baseSize;
    p.scaleX = p.scaleY = s;
}
