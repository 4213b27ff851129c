#pragma once

#include "particle/ZuParticleEffectorBase.h"

#include <cstdint>

// Fades each channel from a start colour to an end colour over the life.
class ZuParticleEffectorColor : public ZuParticleEffectorBase {
public:
    void exec(ZuParticle* particle, float dt) override;
    void setSrcColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a);
    void setDstColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a);

private:
    uint8_t src[4] = {255, 255, 255, 255};
    uint8_t dst[4] = {255, 255, 255, 0};
};
