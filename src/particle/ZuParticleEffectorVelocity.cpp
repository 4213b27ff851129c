#include "particle/ZuParticleEffectorVelocity.h"

#include "particle/ZuParticle.h"
#include "platform/ZuLog.h"

#include <cmath>

namespace {

// cos and sin of every whole angle from -359 to 359 degrees, in double
// precision: a launch that ramps its speed needs them for every particle on
// every tick, and angles are whole degrees.
struct DirectionTable {
    double cosine[719], sine[719];
    DirectionTable() {
        for (int d = -359; d <= 359; ++d) {
            const double a = static_cast<double>(d) / 180.0 * 3.14159265358979323846;
            cosine[d + 359] = std::cos(a);
            sine[d + 359] = std::sin(a);
        }
    }
};
const DirectionTable kDirections;

} // namespace

void ZuParticleEffectorVelocity::setVelocitySpeed(float speed, int angle) {
    const int d = angle % 360 + 359;
    velX = static_cast<float>(kDirections.cosine[d] * speed);
    velY = static_cast<float>(kDirections.sine[d] * speed);
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
