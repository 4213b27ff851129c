#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzArray.h"

#include <cstdint>

class ZuParticle;
class ZuParticleEffectorBase;
class ZuParticleEmitterBase;
class ZuRandom;

// A fixed pool of particles, one emitter that wakes dead ones and a chain of
// effectors that change the living ones. Each tick writes every living
// particle's six vertices into one buffer, so one draw shows them all.
// Everything is allocated in zuinit: a tick allocates nothing.
class ZuParticleEffect : public ZuObject {
public:
    // More would make a mesh past 18,000 vertices for one item.
    static constexpr int kMaxParticles = 3000;

    // Random draws come from random, which must outlive the effect.
    explicit ZuParticleEffect(ZuRandom* random) : random(random) {}
    ~ZuParticleEffect() override;

    // A count above kMaxParticles is capped, one below 0 makes an empty pool.
    // Calling it again replaces the pool and keeps emitter and effectors.
    void zuinit(int maxParticles);
    void zudestroy();

    // Takes ownership; a second call destroys the first emitter.
    void setEmitter(ZuParticleEmitterBase* emitter);
    // Retains; exec runs in the order they were added.
    void addEffector(ZuParticleEffectorBase* effector);
    void delEffector(ZuParticleEffectorBase* effector);

    void update(float seconds);
    // A held effect wakes no new particles; those alive live on. Items that
    // wait for a trigger (an open mouth) hold their effect until it comes.
    void setEmitting(bool on) { emitting = on; }
    bool isEmitting() const { return emitting; }

    const uint8_t* getData() const { return data; }
    int getMaxDataLen() const { return maxDataLen; }
    int getDataLen() const { return dataLen; }
    int getPtNum() const { return liveCount * 6; }
    int getCapacity() const { return capacity; }
    int getLiveCount() const { return liveCount; }
    int getFreeCount() const { return freeCount; }
    ZuParticle* getParticle(int index) const;
    ZuParticleEmitterBase* getEmitter() const { return emitter; }
    ZuRandom* getRandom() const { return random; }

    // Moves up to num indices from the front of the free list into the taken
    // list (read with getTaken) and returns how many.
    int _applyNullPartilce(int num);
    const int* getTaken() const { return taken; }

private:
    void freePool();

    ZuRandom* random;
    bool emitting = true;
    ZuParticleEmitterBase* emitter = nullptr;
    qz::array<ZuParticleEffectorBase*> effectors;
    ZuParticle* particles = nullptr;
    int* freeList = nullptr;
    int* taken = nullptr;
    int capacity = 0;
    int freeCount = 0;
    int liveCount = 0;
    int maxDataLen = 0;
    uint8_t* data = nullptr;
    int dataLen = 0;
};
