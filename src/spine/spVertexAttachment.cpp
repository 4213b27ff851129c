#include "spine/spVertexAttachment.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spSkeleton.h"
#include "spine/spSlot.h"

void _spVertexAttachment_init(spVertexAttachment* self, const char* name, spAttachmentType type,
                              void (*dispose)(spAttachment* self)) {
    _spAttachment_init(&self->super, name, type, dispose);
}

void _spVertexAttachment_deinit(spVertexAttachment* self) {
    _spAttachment_deinit(&self->super);
    SP_FREE(self->bones);
    SP_FREE(self->vertices);
}

int spVertexAttachment_getDeformLength(const spVertexAttachment* self) {
    return self->bones ? self->verticesCount / 3 * 2 : self->verticesCount;
}

static void compute(spVertexAttachment* self, int start, int count, spSlot* slot, float* out, int offset,
                    float originX, float originY) {
    if (start < 0 || count <= 0) return;
    if (count > self->worldVerticesLength - start) count = self->worldVerticesLength - start;
    if (count <= 0) return;
    spSkeleton* skeleton = slot->bone->skeleton;
    const float* deform = nullptr;
    if (slot->attachmentVerticesCount > 0 &&
        slot->attachmentVerticesCount == spVertexAttachment_getDeformLength(self))
        deform = slot->attachmentVertices;

    if (!self->bones) {
        const float* vertices = deform ? deform : self->vertices;
        if (count > self->verticesCount - start) count = self->verticesCount - start;
        spBone* bone = slot->bone;
        float x = bone->worldX + originX, y = bone->worldY + originY;
        for (int v = start, w = offset; v + 1 < start + count; v += 2, w += 2) {
            float vx = vertices[v], vy = vertices[v + 1];
            out[w] = vx * bone->a + vy * bone->b + x;
            out[w + 1] = vx * bone->c + vy * bone->d + y;
        }
        return;
    }

    // Skip the vertices before `start`: each takes its bone count plus one
    // entry in `bones` and three floats per bone in `vertices`.
    int v = 0, b = 0;
    for (int i = 0; i < start && v < self->bonesCount; i += 2) {
        int n = self->bones[v];
        v += n + 1;
        b += n * 3;
    }
    spBone** skeletonBones = skeleton->bones;
    for (int w = offset, end = offset + count; w + 1 < end; w += 2) {
        float wx = originX, wy = originY;
        if (v < self->bonesCount) {
            int n = self->bones[v++];
            for (int j = 0; j < n && v < self->bonesCount && b + 2 < self->verticesCount; j++, b += 3) {
                const spBone* bone = skeletonBones[self->bones[v++]];
                float vx = self->vertices[b], vy = self->vertices[b + 1], weight = self->vertices[b + 2];
                if (deform) {
                    int f = b / 3 * 2;
                    vx += deform[f];
                    vy += deform[f + 1];
                }
                wx += (vx * bone->a + vy * bone->b + bone->worldX) * weight;
                wy += (vx * bone->c + vy * bone->d + bone->worldY) * weight;
            }
        }
        out[w] = wx;
        out[w + 1] = wy;
    }
}

void spVertexAttachment_computeWorldVertices1(spVertexAttachment* self, int start, int count, spSlot* slot,
                                              float* worldVertices, int offset) {
    spSkeleton* skeleton = slot->bone->skeleton;
    compute(self, start, count, slot, worldVertices, offset, skeleton->x, skeleton->y);
}

void spVertexAttachment_computeWorldVertices(spVertexAttachment* self, spSlot* slot, float* worldVertices) {
    spVertexAttachment_computeWorldVertices1(self, 0, self->worldVerticesLength, slot, worldVertices, 0);
}

void _spVertexAttachment_computeBoneSpaceVertices(spVertexAttachment* self, int start, int count, spSlot* slot,
                                                 float* worldVertices, int offset) {
    compute(self, start, count, slot, worldVertices, offset, 0, 0);
}
