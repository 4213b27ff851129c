#pragma once

#include "particle/ZuParticleEffectorBase.h"

// A constant acceleration (y given downwards), with an optional speed limit
// that keeps the direction and caps the length.
class ZuParticleEffectorAccelerate : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;

    void setAccelerate(float x, float y) {
        accelX = x;
        accelY = -y;
    }
    void setMaximumSpeed(float speed) { maxSpeed = speed; }

private:
    float accelX = 0, accelY = 0, maxSpeed = 0;
};
