#pragma once

#include "basesys/qzArray.h"
#include "particle/ZuParticleEffectorBase.h"

#include <cstdint>

// A list of colours at shares of the life (the first at 0): a particle takes
// the two around its age, mixed or, without lerp, the earlier one.
class ZuParticleEffectorColorQuene : public ZuParticleEffectorBase {
public:
    struct Stop {
        uint8_t color[4];
        float time;
    };

    void exec(ZuParticle* particle, float dt) override;
    // A negative time, or a first time other than 0, is refused with a message.
    void pushColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a, float time);
    void setLerp(bool value) { lerp = value; }
    uint32_t getStopCount() const { return stops.size(); }

private:
    qz::array<Stop> stops;
    bool lerp = true;
};
