#pragma once

#include "spine/spTimeline.h"

struct spVertexAttachment;

#define SP_COLOR_ENTRIES 5
// Frames: time, r, g, b, a.
struct spColorTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int slotIndex;
};

spColorTimeline* spColorTimeline_create(int framesCount);
void spColorTimeline_setFrame(spColorTimeline* self, int frameIndex, float time, float r, float g, float b, float a);

// Keys which attachment a slot shows; a null name clears the slot. Never
// blended.
struct spAttachmentTimeline {
    spTimeline super;
    int framesCount;
    float* frames;  // times
    const char** attachmentNames;
    int slotIndex;
};

spAttachmentTimeline* spAttachmentTimeline_create(int framesCount);
void spAttachmentTimeline_setFrame(spAttachmentTimeline* self, int frameIndex, float time,
                                   const char* attachmentName);

// Keys the vertices of one vertex attachment (or of linked meshes that
// inherit its deform) in one slot. Each frame holds frameVerticesCount
// floats: absolute positions for an unweighted attachment, offsets per bone
// weight for a weighted one.
struct spDeformTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;  // times
    int frameVerticesCount;
    float** frameVertices;
    int slotIndex;
    spVertexAttachment* attachment;
};

spDeformTimeline* spDeformTimeline_create(int framesCount, int frameVerticesCount);
// Copies frameVerticesCount floats from vertices.
void spDeformTimeline_setFrame(spDeformTimeline* self, int frameIndex, float time, const float* vertices);
