#pragma once

#include "render/math/ZuVec3.h"

// An axis-aligned box; empty until the first point is added.
struct ZuBoundingBox {
    ZuVec3 minimum;
    ZuVec3 maximum;
    bool empty = true;

    void reset() { empty = true; minimum = maximum = ZuVec3(); }

    void addPoint(const ZuVec3& p) {
        if (empty) {
            minimum = maximum = p;
            empty = false;
            return;
        }
        if (p.x < minimum.x) minimum.x = p.x;
        if (p.y < minimum.y) minimum.y = p.y;
        if (p.z < minimum.z) minimum.z = p.z;
        if (p.x > maximum.x) maximum.x = p.x;
        if (p.y > maximum.y) maximum.y = p.y;
        if (p.z > maximum.z) maximum.z = p.z;
    }
};
