#include "particle/ZuParticleMat.h"

#include <cmath>
#include <cstring>

namespace {

// The effects were tuned with this rounded factor; pi / 180 would move
// spinning particles by a visible amount over a long life.
const float kDegToRad = 0.01745f;

// a = a * b for the upper 3 x 3 blocks.
void mul3(float* a, const float (&b)[9]) {
    float r[9];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            r[i * 3 + j] = a[i * 4 + 0] * b[0 * 3 + j] + a[i * 4 + 1] * b[1 * 3 + j] + a[i * 4 + 2] * b[2 * 3 + j];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) a[i * 4 + j] = r[i * 3 + j];
}

} // namespace

void ZuParticleMat::setPos(float x, float y, float z) {
    pos[0] = x;
    pos[1] = y;
    pos[2] = z;
    dirty = true;
}

void ZuParticleMat::setRot(float x, float y, float z) {
    rot[0] = x;
    rot[1] = y;
    rot[2] = z;
    dirty = true;
}

void ZuParticleMat::setScale(float x, float y, float z) {
    scale[0] = x;
    scale[1] = y;
    scale[2] = z;
    dirty = true;
}

void ZuParticleMat::refresh() {
    if (!dirty) return;
    dirty = false;
    std::memset(m, 0, sizeof(m));
    m[0] = scale[0];
    m[5] = scale[1];
    m[10] = scale[2];
    if (rot[0] != 0.0f) {
        const float c = std::cos(rot[0] * kDegToRad), s = std::sin(rot[0] * kDegToRad);
        mul3(m, {1, 0, 0, 0, c, s, 0, -s, c});
    }
    if (rot[1] != 0.0f) {
        const float c = std::cos(rot[1] * kDegToRad), s = std::sin(rot[1] * kDegToRad);
        mul3(m, {c, 0, -s, 0, 1, 0, s, 0, c});
    }
    if (rot[2] != 0.0f) {
        const float c = std::cos(rot[2] * kDegToRad), s = std::sin(rot[2] * kDegToRad);
        mul3(m, {c, s, 0, -s, c, 0, 0, 0, 1});
    }
    m[12] = pos[0];
    m[13] = pos[1];
    m[14] = pos[2];
    m[15] = 1.0f;
}
