#pragma once

#include "basesys/ZuObject.h"
#include "particle/ParticleParam.h"

#include <cstdint>

class ZuRandom;

// One vertex of the drawn buffer: the 0x1101 format (position, colour bytes,
// texture coordinate), 20 bytes.
struct ZuParticleVertex {
    float x, y;
    uint8_t color[4];
    float u, v;
};
static_assert(sizeof(ZuParticleVertex) == 20, "particle vertices are uploaded as they lie in memory");

// One slot of an effect's pool: dead or alive, with its state and its two
// triangles already transformed into effect space.
class ZuParticle : public ZuObject {
public:
    static constexpr int kVertexCount = 6;
    static constexpr int kBytes = kVertexCount * static_cast<int>(sizeof(ZuParticleVertex));

    ZuParticle();

    // Ages the particle; at its life it dies and shows the plain template.
    void update(float dt);
    // Back to a waiting slot: reset state and the template quad.
    void datadead();
    void refreshPos(float dt);
    // Writes the transformed corners and the colour into the vertices.
    void refreshpoint();

    // The unit quad around the origin, white, that every particle starts from.
    static const ZuParticleVertex* quadTemplate();

    // Draws from the engine's seedable source, so a seeded run repeats.
    static int getRandNum(ZuRandom& random, int a, int b);
    static int getRandIntByFloat(ZuRandom& random, float a, float b);
    // Grain 0.001: both ends are truncated to thousandths.
    static float getRandNumFloat(ZuRandom& random, float a, float b);

    bool alive = false;
    int index = -1;
    ParticleParam param;
    ZuParticleVertex vertices[kVertexCount];
};
