#pragma once

#include <cmath>

// A landmark or key point: two floats, no behaviour beyond distance.
struct ZuPoint {
    float x = 0.0f, y = 0.0f;

    // Euclidean distance; the tracker's measures are all built from it.
    static float vector2Distance(const ZuPoint& a, const ZuPoint& b) {
        return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y));
    }
};
