#pragma once

#include "particle/ZuParticleEffectorBase.h"

// Launches a particle along its angle on its birth tick, at a speed scaled
// by a random multiplier. Without acceleration the speed keeps following the
// start-to-end ramp over the life.
class ZuParticleEffectorVelocity : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;

    void setVelocity(float x, float y) {
        velX = x;
        velY = y;
    }
    void setVelocitySpeed(float speed, int angle);
    // A negative multiplier is refused with a message.
    void setMinimumScaleMultiplier(float multiplier);
    void setStartAndEndSpeed(float start, float end) {
        startSpeed = start;
        endSpeed = end;
    }
    void setUnuseAccelerat() { unuseAccelerat = true; }
    void setMaximumSpeed(float speed) { maxSpeed = speed; }

private:
    void launch(ZuParticle* particle, float speed);

    float velX = 0, velY = 0;
    float minMultiplier = 1;
    float maxSpeed = 0;
    float startSpeed = 100, endSpeed = 100;
    bool unuseAccelerat = false;
};
