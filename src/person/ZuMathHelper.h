#pragma once

#include "basesys/qzArray.h"
#include "render/math/ZuVec2.h"

// Geometry helpers of the face overlays.
class ZuMathHelper {
public:
    // A closed smooth curve through a polygon: steps points on each edge
    // (the vertices themselves are not output), on cubic Beziers whose
    // control points lie on the edge midpoints pulled towards the vertices.
    // Coordinates are whole pixels, as the overlays' meshes use them.
    static void createNormalCurve(const ZuVec2* points, int count, int steps, qz::array<ZuVec2>* out);
};
