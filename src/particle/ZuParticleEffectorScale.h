#pragma once

#include "particle/ZuParticleEffectorBase.h"

// Grows or shrinks a particle from a start to an end scale over its life,
// times a random multiplier drawn at birth, on a base of 250 pixels.
class ZuParticleEffectorScale : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;
    // A negative multiplier is refused with a message.
    void setMinimumScaleMultiplier(float multiplier);
    void setStartScale(float scale) { startScale = scale; }
    void setEndScale(float scale) { endScale = scale; }

private:
    float minMultiplier = 1;
    float startScale = 0.5f, endScale = 1.0f;
    float baseSize = 250;
};
