#include "spine/spSlotTimelines.h"

#include "spine/spAllocator.h"
#include "spine/spMeshAttachment.h"
#include "spine/spSkeleton.h"
#include "spine/spSlot.h"

#include <string.h>

namespace {

void disposeColor(spTimeline* timeline) {
    spColorTimeline* self = (spColorTimeline*)timeline;
    _spCurveTimeline_deinit(&self->super);
    SP_FREE(self->frames);
    SP_FREE(self);
}

void applyColor(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                int* eventsCount, float alpha) {
    const spColorTimeline* self = (const spColorTimeline*)timeline;
    const float* frames = self->frames;
    if (self->framesCount < SP_COLOR_ENTRIES || !(time >= frames[0])) return;
    float r, g, b, a;
    if (time >= frames[self->framesCount - SP_COLOR_ENTRIES]) {
        int i = self->framesCount - SP_COLOR_ENTRIES;
        r = frames[i + 1];
        g = frames[i + 2];
        b = frames[i + 3];
        a = frames[i + 4];
    } else {
        int frame = _spTimeline_binarySearch(frames, self->framesCount, time, SP_COLOR_ENTRIES);
        int prev = frame - SP_COLOR_ENTRIES;
        float percent = 1 - (time - frames[frame]) / (frames[prev] - frames[frame]);
        percent = spCurveTimeline_getCurvePercent(&self->super, frame / SP_COLOR_ENTRIES - 1, percent);
        r = frames[prev + 1] + (frames[frame + 1] - frames[prev + 1]) * percent;
        g = frames[prev + 2] + (frames[frame + 2] - frames[prev + 2]) * percent;
        b = frames[prev + 3] + (frames[frame + 3] - frames[prev + 3]) * percent;
        a = frames[prev + 4] + (frames[frame + 4] - frames[prev + 4]) * percent;
    }
    spSlot* slot = skeleton->slots[self->slotIndex];
    if (alpha < 1) {
        slot->r += (r - slot->r) * alpha;
        slot->g += (g - slot->g) * alpha;
        slot->b += (b - slot->b) * alpha;
        slot->a += (a - slot->a) * alpha;
    } else {
        slot->r = r;
        slot->g = g;
        slot->b = b;
        slot->a = a;
    }
}

void disposeAttachment(spTimeline* timeline) {
    spAttachmentTimeline* self = (spAttachmentTimeline*)timeline;
    for (int i = 0; i < self->framesCount; i++) SP_FREE(self->attachmentNames[i]);
    SP_FREE(self->attachmentNames);
    SP_FREE(self->frames);
    SP_FREE(self);
}

void applyAttachment(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time,
                     spEvent** events, int* eventsCount, float alpha) {
    const spAttachmentTimeline* self = (const spAttachmentTimeline*)timeline;
    const float* frames = self->frames;
    if (self->framesCount < 1 || !(time >= frames[0])) return;
    int frame;
    if (time >= frames[self->framesCount - 1]) frame = self->framesCount - 1;
    else frame = _spTimeline_binarySearch(frames, self->framesCount, time, 1) - 1;
    const char* name = self->attachmentNames[frame];
    spSlot* slot = skeleton->slots[self->slotIndex];
    spSlot_setAttachment(slot, name ? spSkeleton_getAttachmentForSlotIndex(skeleton, self->slotIndex, name) : nullptr);
}

void disposeDeform(spTimeline* timeline) {
    spDeformTimeline* self = (spDeformTimeline*)timeline;
    _spCurveTimeline_deinit(&self->super);
    for (int i = 0; i < self->framesCount; i++) SP_FREE(self->frameVertices[i]);
    SP_FREE(self->frameVertices);
    SP_FREE(self->frames);
    SP_FREE(self);
}

void applyDeform(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                 int* eventsCount, float alpha) {
    const spDeformTimeline* self = (const spDeformTimeline*)timeline;
    spSlot* slot = skeleton->slots[self->slotIndex];
    spAttachment* attachment = slot->attachment;
    if (!attachment) return;
    if (attachment != &self->attachment->super) {
        // A linked mesh follows its parent's keys when it inherits deform.
        if (attachment->type != SP_ATTACHMENT_MESH) return;
        const spMeshAttachment* mesh = (const spMeshAttachment*)attachment;
        if (!mesh->inheritDeform || !mesh->parentMesh || &mesh->parentMesh->super != self->attachment) return;
    }
    const float* frames = self->frames;
    if (self->framesCount < 1 || !(time >= frames[0])) return;

    int count = self->frameVerticesCount;
    if (slot->attachmentVerticesCapacity < count) {
        float* grown = SP_MALLOC(float, count);
        if (slot->attachmentVerticesCount > 0)
            memcpy(grown, slot->attachmentVertices, sizeof(float) * slot->attachmentVerticesCount);
        SP_FREE(slot->attachmentVertices);
        slot->attachmentVertices = grown;
        slot->attachmentVerticesCapacity = count;
    }
    // Nothing to blend from when the slot had no deform of this size.
    if (slot->attachmentVerticesCount != count) alpha = 1;
    slot->attachmentVerticesCount = count;
    float* vertices = slot->attachmentVertices;

    if (time >= frames[self->framesCount - 1]) {
        const float* last = self->frameVertices[self->framesCount - 1];
        if (alpha < 1) {
            for (int i = 0; i < count; i++) vertices[i] += (last[i] - vertices[i]) * alpha;
        } else {
            memcpy(vertices, last, sizeof(float) * count);
        }
        return;
    }

    int frame = _spTimeline_binarySearch(frames, self->framesCount, time, 1);
    float percent = 1 - (time - frames[frame]) / (frames[frame - 1] - frames[frame]);
    percent = spCurveTimeline_getCurvePercent(&self->super, frame - 1, percent);
    const float* prev = self->frameVertices[frame - 1];
    const float* next = self->frameVertices[frame];
    if (alpha < 1) {
        for (int i = 0; i < count; i++) {
            float value = prev[i] + (next[i] - prev[i]) * percent;
            vertices[i] += (value - vertices[i]) * alpha;
        }
    } else {
        for (int i = 0; i < count; i++) vertices[i] = prev[i] + (next[i] - prev[i]) * percent;
    }
}

} // namespace

spColorTimeline* spColorTimeline_create(int framesCount) {
    spColorTimeline* self = SP_NEW(spColorTimeline);
    _spCurveTimeline_init(&self->super, SP_TIMELINE_COLOR, framesCount, applyColor, disposeColor);
    self->framesCount = framesCount * SP_COLOR_ENTRIES;
    self->frames = SP_CALLOC(float, self->framesCount);
    return self;
}

void spColorTimeline_setFrame(spColorTimeline* self, int frameIndex, float time, float r, float g, float b,
                              float a) {
    int i = frameIndex * SP_COLOR_ENTRIES;
    if (frameIndex < 0 || i >= self->framesCount) return;
    self->frames[i] = time;
    self->frames[i + 1] = r;
    self->frames[i + 2] = g;
    self->frames[i + 3] = b;
    self->frames[i + 4] = a;
}

spAttachmentTimeline* spAttachmentTimeline_create(int framesCount) {
    spAttachmentTimeline* self = SP_NEW(spAttachmentTimeline);
    _spTimeline_init(&self->super, SP_TIMELINE_ATTACHMENT, applyAttachment, disposeAttachment);
    self->framesCount = framesCount;
    self->frames = SP_CALLOC(float, framesCount);
    self->attachmentNames = SP_CALLOC(const char*, framesCount);
    return self;
}

void spAttachmentTimeline_setFrame(spAttachmentTimeline* self, int frameIndex, float time,
                                   const char* attachmentName) {
    if (frameIndex < 0 || frameIndex >= self->framesCount) return;
    self->frames[frameIndex] = time;
    SP_FREE(self->attachmentNames[frameIndex]);
    self->attachmentNames[frameIndex] = _spStrDup(attachmentName);
}

spDeformTimeline* spDeformTimeline_create(int framesCount, int frameVerticesCount) {
    spDeformTimeline* self = SP_NEW(spDeformTimeline);
    _spCurveTimeline_init(&self->super, SP_TIMELINE_DEFORM, framesCount, applyDeform, disposeDeform);
    self->framesCount = framesCount;
    self->frames = SP_CALLOC(float, framesCount);
    self->frameVerticesCount = frameVerticesCount;
    self->frameVertices = SP_CALLOC(float*, framesCount);
    return self;
}

void spDeformTimeline_setFrame(spDeformTimeline* self, int frameIndex, float time, const float* vertices) {
    if (frameIndex < 0 || frameIndex >= self->framesCount) return;
    self->frames[frameIndex] = time;
    SP_FREE(self->frameVertices[frameIndex]);
    self->frameVertices[frameIndex] = SP_MALLOC(float, self->frameVerticesCount);
    memcpy(self->frameVertices[frameIndex], vertices, sizeof(float) * self->frameVerticesCount);
}
