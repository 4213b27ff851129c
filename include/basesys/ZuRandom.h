#pragma once

#include <cstdint>

// The engine's one source of randomness (one per ZuAppMain). Games,
// particles, pets and test objects draw from it instead of rand(), so a run
// seeded by the host or a test repeats exactly.
//
// The generator is xorshift64*: small, fast, the same numbers on every
// compiler and processor (std::uniform_*_distribution is not). Not
// thread-safe: it is used on the render thread only.
class ZuRandom {
public:
    // Seeded from the wall clock.
    ZuRandom();
    explicit ZuRandom(uint64_t seed) { setSeed(seed); }

    // Restarts the sequence; seed 0 is allowed (it is remapped internally).
    void setSeed(uint64_t seed);
    uint64_t getSeed() const { return seed; }

    // 32 uniformly distributed bits.
    uint32_t next();

    // An int between a and b, both included, in either order (rand() % n style
    // reduction: the bias is below 1e-9 for the small ranges the engine uses).
    int rangeInt(int a, int b);

    // A float between a and b with a grain of 0.001: both ends are scaled by
    // 1000 and truncated, an int is drawn between them and divided back.
    float rangeFloatGrain(float a, float b);

    // A float in [0, 1).
    float unit();

    // rand() % n for callers that port modulo arithmetic; n <= 0 gives 0.
    int mod(int n);

private:
    uint64_t seed = 0;
    uint64_t state = 0;
};
