#include "spine/spAnimation.h"

#include "spine/spAllocator.h"
#include "spine/spTimeline.h"

#include <math.h>

spAnimation* spAnimation_create(const char* name, int timelinesCount, spTimeline** timelines) {
    spAnimation* self = SP_NEW(spAnimation);
    self->name = _spStrDup(name ? name : "");
    self->timelinesCount = timelinesCount;
    self->timelines = timelines;
    return self;
}

void spAnimation_dispose(spAnimation* self) {
    if (!self) return;
    for (int i = 0; i < self->timelinesCount; i++) spTimeline_dispose(self->timelines[i]);
    SP_FREE(self->timelines);
    SP_FREE(self->name);
    SP_FREE(self);
}

void spAnimation_apply(const spAnimation* self, spSkeleton* skeleton, float lastTime, float time, int loop,
                       spEvent** events, int* eventsCount) {
    spAnimation_mix(self, skeleton, lastTime, time, loop, events, eventsCount, 1);
}

void spAnimation_mix(const spAnimation* self, spSkeleton* skeleton, float lastTime, float time, int loop,
                     spEvent** events, int* eventsCount, float alpha) {
    if (loop && self->duration != 0) {
        time = fmodf(time, self->duration);
        if (lastTime > 0) lastTime = fmodf(lastTime, self->duration);
    }
    for (int i = 0, n = self->timelinesCount; i < n; i++)
        spTimeline_apply(self->timelines[i], skeleton, lastTime, time, events, eventsCount, alpha);
}

int spAnimation_maxFiredEvents(const spAnimation* self) {
    int count = 0;
    for (int i = 0; i < self->timelinesCount; i++) count += spTimeline_maxFiredEvents(self->timelines[i]);
    return count;
}
