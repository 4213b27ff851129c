#include "spine/spEventTimeline.h"

#include "spine/spAllocator.h"
#include "spine/spEvent.h"

#include <float.h>

namespace {

void disposeEvent(spTimeline* timeline) {
    spEventTimeline* self = (spEventTimeline*)timeline;
    for (int i = 0; i < self->framesCount; i++) spEvent_dispose(self->events[i]);
    SP_FREE(self->events);
    SP_FREE(self->frames);
    SP_FREE(self);
}

// Fires the keys with lastTime < key time <= time, in key order.
void fireRange(const spEventTimeline* self, float lastTime, float time, spEvent** firedEvents, int* eventsCount) {
    const float* frames = self->frames;
    int count = self->framesCount;
    if (lastTime >= frames[count - 1] || !(time >= frames[0])) return;
    int frame;
    if (lastTime < frames[0]) {
        frame = 0;
    } else {
        // First key after lastTime; keys sharing one time all fire together.
        int low = 0, high = count;
        while (low < high) {
            int middle = (low + high) / 2;
            if (frames[middle] > lastTime) high = middle;
            else low = middle + 1;
        }
        frame = low;
    }
    for (; frame < count && time >= frames[frame]; frame++) {
        if (self->events[frame]) firedEvents[(*eventsCount)++] = self->events[frame];
    }
}

void applyEvent(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** firedEvents,
                int* eventsCount, float alpha) {
    const spEventTimeline* self = (const spEventTimeline*)timeline;
    if (!firedEvents || !eventsCount || self->framesCount < 1) return;
    if (lastTime > time) {
        // The time wrapped: finish the previous turn, then start over from
        // before the first frame so that a key at 0 fires again.
        fireRange(self, lastTime, FLT_MAX, firedEvents, eventsCount);
        lastTime = -1;
    }
    fireRange(self, lastTime, time, firedEvents, eventsCount);
}

} // namespace

spEventTimeline* spEventTimeline_create(int framesCount) {
    spEventTimeline* self = SP_NEW(spEventTimeline);
    _spTimeline_init(&self->super, SP_TIMELINE_EVENT, applyEvent, disposeEvent);
    self->framesCount = framesCount;
    self->frames = SP_CALLOC(float, framesCount);
    self->events = SP_CALLOC(spEvent*, framesCount);
    return self;
}

void spEventTimeline_setFrame(spEventTimeline* self, int frameIndex, spEvent* event) {
    if (frameIndex < 0 || frameIndex >= self->framesCount) return;
    self->frames[frameIndex] = event->time;
    spEvent_dispose(self->events[frameIndex]);
    self->events[frameIndex] = event;
}
