#pragma once

#include "spine/spAttachment.h"

struct spBone;

// Corner order of `offset` and `uvs`: bottom left, upper left, upper right,
// bottom right, as x, y pairs. Two triangles are 0, 1, 2 and 2, 3, 0.
enum spVertexIndex {
    SP_VERTEX_X1 = 0, SP_VERTEX_Y1, SP_VERTEX_X2, SP_VERTEX_Y2,
    SP_VERTEX_X3, SP_VERTEX_Y3, SP_VERTEX_X4, SP_VERTEX_Y4
};

// A textured quad placed relative to its slot's bone.
struct spRegionAttachment {
    spAttachment super;
    const char* path;
    float x, y, scaleX, scaleY, rotation, width, height;
    float r, g, b, a;

    void* rendererObject;  // the atlas region
    int regionOffsetX, regionOffsetY;  // trimmed pixels left and below
    int regionWidth, regionHeight;     // size after trimming
    int regionOriginalWidth, regionOriginalHeight;

    float offset[8];  // corners in the bone's space
    float uvs[8];
};

spRegionAttachment* spRegionAttachment_create(const char* name);
void spRegionAttachment_setUVs(spRegionAttachment* self, float u, float v, float u2, float v2, int rotate);
// Recomputes `offset` from the placement and the region's trimming.
void spRegionAttachment_updateOffset(spRegionAttachment* self);
// Four corners (8 floats) in world space, including the skeleton's position.
void spRegionAttachment_computeWorldVertices(spRegionAttachment* self, spBone* bone, float* vertices);
