// The particle tick on the CPU: 10,000 living particles (four full effects,
// a pool holds at most 3,000) updated and written into their vertex buffers,
// as one frame does, with the heap calls a steady frame makes counted.
#include "basesys/ZuRandom.h"
#include "particle/ZuParticleEffect.h"
#include "particle/ZuParticleEffectorColor.h"
#include "particle/ZuParticleEffectorPalstance.h"
#include "particle/ZuParticleEffectorScale.h"
#include "particle/ZuParticleEffectorVelocity.h"
#include "particle/ZuParticleEmitterCircle.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<long> g_heapCalls{0};
} // namespace

// Every C++ allocation of the program passes here, the engine's included.
void* operator new(size_t size) {
    g_heapCalls.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, size_t) noexcept { std::free(p); }

namespace {

const int kEffects = 4;
const int kPerEffect = 2500;

// An effect as a package makes one: circle emitter, launch, fade, scale, spin;
// lives long enough that the pool stays full over the measured run.
ZuParticleEffect* makeEffect(ZuRandom* random) {
    auto* effect = new ZuParticleEffect(random);
    effect->zuinit(kPerEffect);
    auto* emitter = new ZuParticleEmitterCircle();
    emitter->setEmitCircle(256, 256, 100);
    emitter->setGenerateSpeed(1000000);
    emitter->setParticleMinMaxLife(1000, 2000);
    emitter->setMinAndMaxPalstance(-90, 90);
    effect->setEmitter(emitter);
    auto* velocity = new ZuParticleEffectorVelocity();
    velocity->setUnuseAccelerat();
    velocity->setStartAndEndSpeed(100, 20);
    auto* color = new ZuParticleEffectorColor();
    auto* scale = new ZuParticleEffectorScale();
    auto* spin = new ZuParticleEffectorPalstance();
    ZuParticleEffectorBase* chain[] = {velocity, color, scale, spin};
    for (ZuParticleEffectorBase* e : chain) {
        effect->addEffector(e);
        e->release();
    }
    return effect;
}

void BM_ParticleTick10k(benchmark::State& state) {
    ZuRandom random(1);
    ZuParticleEffect* effects[kEffects];
    for (ZuParticleEffect*& e : effects) e = makeEffect(&random);
    for (int i = 0; i < 3; ++i)
        for (ZuParticleEffect* e : effects) e->update(1.0f / 30.0f);
    int live = 0;
    for (ZuParticleEffect* e : effects) live += e->getLiveCount();
    g_heapCalls = 0;
    long frames = 0;
    for (auto _ : state) {
        for (ZuParticleEffect* e : effects) e->update(1.0f / 30.0f);
        benchmark::DoNotOptimize(effects[0]->getData());
        ++frames;
    }
    state.counters["live_particles"] = live;
    state.counters["heap_calls_per_frame"] = frames ? static_cast<double>(g_heapCalls) / frames : 0;
    for (ZuParticleEffect* e : effects) delete e;
}
BENCHMARK(BM_ParticleTick10k)->Unit(benchmark::kMicrosecond);

} // namespace
