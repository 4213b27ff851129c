#pragma once

#include "spine/spTimeline.h"

struct spEvent;

// Keys events. Applying from lastTime to time fires each event with
// lastTime < event time <= time; when time has wrapped below lastTime (a
// loop), the rest of the previous turn fires first.
struct spEventTimeline {
    spTimeline super;
    int framesCount;
    float* frames;     // times
    spEvent** events;  // owned
};

spEventTimeline* spEventTimeline_create(int framesCount);
// Takes ownership of the event.
void spEventTimeline_setFrame(spEventTimeline* self, int frameIndex, spEvent* event);
