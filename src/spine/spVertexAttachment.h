#pragma once

#include "spine/spAttachment.h"

struct spSlot;

// Base of attachments made of vertices (mesh, bounding box, path).
// Unweighted: `bones` is null and `vertices` holds x, y pairs in the slot
// bone's space. Weighted: `bones` holds, per vertex, a bone count followed by
// that many bone indices, and `vertices` holds x, y, weight per bone.
struct spVertexAttachment {
    spAttachment super;
    int bonesCount;
    int* bones;
    int verticesCount;
    float* vertices;
    int worldVerticesLength;  // two floats per vertex
};

void _spVertexAttachment_init(spVertexAttachment* self, const char* name, spAttachmentType type,
                              void (*dispose)(spAttachment* self));
void _spVertexAttachment_deinit(spVertexAttachment* self);

// Number of floats a deform key holds for this attachment: one x, y pair per
// vertex, or per bone of each vertex when weighted.
int spVertexAttachment_getDeformLength(const spVertexAttachment* self);

// `count` floats of world vertices starting at float `start`, written to
// worldVertices from `offset`. Uses the slot's deformed vertices when they fit
// this attachment. The skeleton's position is included.
void spVertexAttachment_computeWorldVertices1(spVertexAttachment* self, int start, int count, spSlot* slot,
                                              float* worldVertices, int offset);
// All world vertices.
void spVertexAttachment_computeWorldVertices(spVertexAttachment* self, spSlot* slot, float* worldVertices);
// Same as computeWorldVertices1, but in the space of the bones' world
// transforms, without the skeleton's position.
void _spVertexAttachment_computeBoneSpaceVertices(spVertexAttachment* self, int start, int count, spSlot* slot,
                                                 float* worldVertices, int offset);
