#include "basesys/ZuRandom.h"

#include <sys/time.h>

ZuRandom::ZuRandom() {
    timeval now{};
    gettimeofday(&now, nullptr);
    setSeed((uint64_t)now.tv_sec * 1000000u + (uint64_t)now.tv_usec);
}

void ZuRandom::setSeed(uint64_t value) {
    seed = value;
    // xorshift has one fixed point (0); a splitmix step spreads nearby seeds
    // apart and never leaves the state at 0.
    uint64_t z = value + 0x9e3779b97f4a7c15ull;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
    z ^= z >> 31;
    state = z ? z : 0x2545f4914f6cdd1dull;
}

uint32_t ZuRandom::next() {
    state ^= state >> 12;
    state ^= state << 25;
    state ^= state >> 27;
    return (uint32_t)((state * 0x2545f4914f6cdd1dull) >> 32);
}

int ZuRandom::rangeInt(int a, int b) {
    if (a > b) {
        int t = a;
        a = b;
        b = t;
    }
    uint64_t span = (uint64_t)((int64_t)b - (int64_t)a) + 1u;
    return (int)((int64_t)a + (int64_t)(next() % span));
}

float ZuRandom::rangeFloatGrain(float a, float b) {
    int lo = (int)(a * 1000.0f);
    int hi = (int)(b * 1000.0f);
    return (float)rangeInt(lo, hi) / 1000.0f;
}

float ZuRandom::unit() { return (float)(next() >> 8) * (1.0f / 16777216.0f); }

int ZuRandom::mod(int n) { return n > 0 ? (int)(next() % (uint32_t)n) : 0; }
