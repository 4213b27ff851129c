#pragma once

#include "basesys/ZuRefObject.h"

class ZuParticle;
class ZuRandom;

// One rule applied to every living particle each tick, before the particle
// moves itself. Shared by reference: an effect retains what it is given.
class ZuParticleEffectorBase : public ZuRefObject {
public:
    virtual void zudestroy() {}
    virtual void exec(ZuParticle* particle, float dt) = 0;

    void setRandom(ZuRandom* source) { random = source; }

protected:
    // The share of its life a particle has lived, 0 to 1; a particle with no
    // life counts as at its end.
    static float lifeRatio(const ZuParticle* particle);

    ZuRandom* random = nullptr;
};
