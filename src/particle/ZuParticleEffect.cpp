#include "particle/ZuParticleEffect.h"

#include "particle/ZuParticle.h"
#include "particle/ZuParticleEffectorBase.h"
#include "particle/ZuParticleEmitterBase.h"
#include "platform/ZuLog.h"

#include <cstring>

ZuParticleEffect::~ZuParticleEffect() { zudestroy(); }

void ZuParticleEffect::zuinit(int maxParticles) {
    freePool();
    if (maxParticles < 0) {
        QZLOGW("particle pool of %d particles refused; the effect stays empty", maxParticles);
        maxParticles = 0;
    }
    if (maxParticles > kMaxParticles) {
        QZLOGW("particle pool of %d particles capped at %d", maxParticles, kMaxParticles);
        maxParticles = kMaxParticles;
    }
    capacity = maxParticles;
    particles = new ZuParticle[capacity > 0 ? capacity : 1];
    freeList = new int[capacity > 0 ? capacity : 1];
    taken = new int[capacity > 0 ? capacity : 1];
    for (int i = 0; i < capacity; ++i) {
        particles[i].index = i;
        freeList[i] = i;
    }
    freeCount = capacity;
    liveCount = 0;
    maxDataLen = capacity * ZuParticle::kBytes;
    data = new uint8_t[maxDataLen > 0 ? maxDataLen : 1];
    dataLen = 0;
}

void ZuParticleEffect::zudestroy() {
    for (uint32_t i = 0; i < effectors.size(); ++i) {
        effectors[i]->zudestroy();
        effectors[i]->release();
    }
    effectors.clear();
    if (emitter) {
        emitter->zudestroy();
        delete emitter;
        emitter = nullptr;
    }
    freePool();
}


void ZuParticleEffect::freePool() {
    delete[] particles;
    delete[] freeList;
    delete[] taken;
    delete[] data;
    particles = nullptr;
    freeList = taken = nullptr;
    data = nullptr;
    capacity = freeCount = liveCount = maxDataLen = dataLen = 0;
}

void ZuParticleEffect::setEmitter(ZuParticleEmitterBase* newEmitter) {
    if (newEmitter == emitter) return;
    if (emitter) {
        emitter->zudestroy();
        delete emitter;
    }
    emitter = newEmitter;
    if (emitter) emitter->setRandom(random);
}

void ZuParticleEffect::addEffector(ZuParticleEffectorBase* effector) {
    if (!effector) return;
    effector->retain();
    effector->setRandom(random);
    effectors.push_back(effector);
}

void ZuParticleEffect::delEffector(ZuParticleEffectorBase* effector) {
    for (uint32_t i = 0; i < effectors.size(); ++i) {
        if (effectors[i] != effector) continue;
        effectors.erase(i);
        effector->zudestroy();
        effector->release();
        return;
    }
}

ZuParticle* ZuParticleEffect::getParticle(int index) const {
    return index >= 0 && index < capacity ? &particles[index] : nullptr;
}

int ZuParticleEffect::_applyNullPartilce(int num) {
    if (num < 1 || freeCount < 1) return 0;
    const int n = num < freeCount ? num : freeCount;
    std::memcpy(taken, freeList, sizeof(int) * n);
    std::memmove(freeList, freeList + n, sizeof(int) * (freeCount - n));
    freeCount -= n;
    return n;
}

void ZuParticleEffect::update(float seconds) {
    if (emitter && emitter->update(seconds) && emitting) emitter->generate(this, seconds);
    liveCount = freeCount = dataLen = 0;
    for (int i = 0; i < capacity; ++i) {
        ZuParticle& particle = particles[i];
        if (particle.alive) {
            for (uint32_t k = 0; k < effectors.size(); ++k) effectors[k]->exec(&particle, seconds);
            // A particle dying now is still copied, as the plain template:
            // its slot comes free on the next tick.
            particle.update(seconds);
            std::memcpy(data + dataLen, particle.vertices, ZuParticle::kBytes);
            dataLen += ZuParticle::kBytes;
            ++liveCount;
        } else {
            particle.datadead();
            if (freeCount >= capacity) {
                QZLOGE("error patcle cache full!\n");
                continue;
            }
            freeList[freeCount++] = particle.index;
        }
    }
}
