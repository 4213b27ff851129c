#pragma once

// A plain four-float record (homogeneous points, RGBA as floats, weights).
struct ZuVec4 {
    float x = 0.0f, y = 0.0f, z = 0.0f, w = 0.0f;

    ZuVec4() = default;
    ZuVec4(float x, float y, float z, float w) : x(x), y(y), z(z), w(w) {}

    void set(float nx, float ny, float nz, float nw) { x = nx; y = ny; z = nz; w = nw; }
    bool operator==(const ZuVec4& o) const { return x == o.x && y == o.y && z == o.z && w == o.w; }
    bool operator!=(const ZuVec4& o) const { return !(*this == o); }
};
