#pragma once

#include "spine/spVertexAttachment.h"

// A cubic spline that path constraints lay bones along. Vertices come in
// threes per point: incoming handle, point, outgoing handle.
struct spPathAttachment {
    spVertexAttachment super;
    int lengthsCount;
    float* lengths;  // cumulative length at the end of each curve, setup pose
    int closed;
    int constantSpeed;
};

spPathAttachment* spPathAttachment_create(const char* name);
