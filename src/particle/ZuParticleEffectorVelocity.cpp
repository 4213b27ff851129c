#include "particle/ZuParticleEffectorVelocity.h"

#include "particle/ZuParticle.h"
#include "platform/ZuLog.h"

#include <cmath>

void ZuParticleEffectorVelocity::setVelocitySpeed(float speed, int angle) {
    const double a = static_cast<double>(angle % 360) / 180.0 * 3.14159265358979323846;
    velX = static_cast<float>(std::cos(a) * speed);
    velY = static_cast<float>(std::sin(a) * speed);
}

void ZuParticleEffectorVelocity::setMinimumScaleMultiplier(float multiplier) {
    if (multiplier < 0.0f) {
        QZLOGW("速度倍数不能为负数");
        return;
    }
    minMultiplier = multiplier;
}

void ZuParticleEffectorVelocity::launch(ZuParticle* particle, float speed) {
    setVelocitySpeed(speed, particle->param.angle);
    particle->param.velocityX = velX * particle->param.velocityMultiplier;
    particle->param.velocityY = velY * particle->param.velocityMultiplier;
}

void ZuParticleEffectorVelocity::exec(ZuParticle* particle, float) {
    ParticleParam& p = particle->param;
    if (p.lifeTime == 0.0f) {
        p.velocityMultiplier = random ? ZuParticle::getRandNumFloat(*random, minMultiplier, 1.0f) : 1.0f;
        float speed = startSpeed;
        if (!unuseAccelerat && maxSpeed > 0.0f && startSpeed >= maxSpeed) speed = maxSpeed;
        launch(particle, speed);
    } else if (unuseAccelerat) {
        launch(particle, startSpeed + lifeRatio(particle) * (endSpeed - startSpeed));
    }
}
