#pragma once

struct spTimeline;
struct spSkeleton;
struct spEvent;

// A named set of timelines.
struct spAnimation {
    const char* name;
    float duration;  // seconds: the latest key time of its timelines
    int timelinesCount;
    spTimeline** timelines;
};

// Takes ownership of the timelines array and the timelines.
spAnimation* spAnimation_create(const char* name, int timelinesCount, spTimeline** timelines);
void spAnimation_dispose(spAnimation* self);

// Poses the skeleton at `time`, firing events keyed after lastTime into
// `events` (room for spAnimation_maxFiredEvents; may be null). With loop set
// and a non-zero duration both times are taken within one turn.
void spAnimation_apply(const spAnimation* self, spSkeleton* skeleton, float lastTime, float time, int loop,
                       spEvent** events, int* eventsCount);
// Same, blending each value towards the animation's by alpha.
void spAnimation_mix(const spAnimation* self, spSkeleton* skeleton, float lastTime, float time, int loop,
                     spEvent** events, int* eventsCount, float alpha);
// Room one apply needs in its events buffer.
int spAnimation_maxFiredEvents(const spAnimation* self);
