#pragma once

// The transform of one particle quad: scale, then rotations about x, y and z
// (degrees), then the position. Row vectors: out.x = m0 x + m4 y + m8 z + m12.
// Rebuilt only when a setter changed something.
class ZuParticleMat {
public:
    void setPos(float x, float y, float z);
    void setRot(float x, float y, float z);
    void setScale(float x, float y, float z);
    void refresh();

    // Transforms (x, y, 0) and returns the x and y of the result.
    void transform2(float x, float y, float* outX, float* outY) const {
        *outX = m[0] * x + m[4] * y + m[12];
        *outY = m[1] * x + m[5] * y + m[13];
    }
    const float* data() const { return m; }

private:
    float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    float pos[3] = {0, 0, 0};
    float rot[3] = {0, 0, 0};
    float scale[3] = {1, 1, 1};
    bool dirty = true;
};
