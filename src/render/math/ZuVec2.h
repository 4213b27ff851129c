#pragma once

// A plain two-float record (screen points, sizes).
struct ZuVec2 {
    float x = 0.0f, y = 0.0f;

    ZuVec2() = default;
    ZuVec2(float x, float y) : x(x), y(y) {}
    bool operator==(const ZuVec2& o) const { return x == o.x && y == o.y; }
};
