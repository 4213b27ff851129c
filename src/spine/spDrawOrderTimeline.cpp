#include "spine/spDrawOrderTimeline.h"

#include "spine/spAllocator.h"
#include "spine/spSkeleton.h"

#include <string.h>

namespace {

void disposeDrawOrder(spTimeline* timeline) {
    spDrawOrderTimeline* self = (spDrawOrderTimeline*)timeline;
    for (int i = 0; i < self->framesCount; i++) SP_FREE(self->drawOrders[i]);
    SP_FREE(self->drawOrders);
    SP_FREE(self->frames);
    SP_FREE(self);
}

void applyDrawOrder(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                    int* eventsCount, float alpha) {
    const spDrawOrderTimeline* self = (const spDrawOrderTimeline*)timeline;
    const float* frames = self->frames;
    if (self->framesCount < 1 || !(time >= frames[0])) return;
    int frame;
    if (time >= frames[self->framesCount - 1]) frame = self->framesCount - 1;
    else frame = _spTimeline_binarySearch(frames, self->framesCount, time, 1) - 1;

    const int* drawOrder = self->drawOrders[frame];
    int count = self->slotsCount < skeleton->slotsCount ? self->slotsCount : skeleton->slotsCount;
    if (!drawOrder) {
        memcpy(skeleton->drawOrder, skeleton->slots, sizeof(spSlot*) * skeleton->slotsCount);
        return;
    }
    for (int i = 0; i < count; i++) skeleton->drawOrder[i] = skeleton->slots[drawOrder[i]];
}

} // namespace

spDrawOrderTimeline* spDrawOrderTimeline_create(int framesCount, int slotsCount) {
    spDrawOrderTimeline* self = SP_NEW(spDrawOrderTimeline);
    _spTimeline_init(&self->super, SP_TIMELINE_DRAWORDER, applyDrawOrder, disposeDrawOrder);
    self->framesCount = framesCount;
    self->frames = SP_CALLOC(float, framesCount);
    self->drawOrders = SP_CALLOC(int*, framesCount);
    self->slotsCount = slotsCount;
    return self;
}

void spDrawOrderTimeline_setFrame(spDrawOrderTimeline* self, int frameIndex, float time, const int* drawOrder) {
    if (frameIndex < 0 || frameIndex >= self->framesCount) return;
    self->frames[frameIndex] = time;
    SP_FREE(self->drawOrders[frameIndex]);
    self->drawOrders[frameIndex] = nullptr;
    if (drawOrder) {
        self->drawOrders[frameIndex] = SP_MALLOC(int, self->slotsCount);
        memcpy(self->drawOrders[frameIndex], drawOrder, sizeof(int) * self->slotsCount);
    }
}
