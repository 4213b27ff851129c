#pragma once

#include "spine/spTimeline.h"

// Keys the order in which slots are drawn. Each frame's array gives, for each
// draw position, the index of the slot drawn there; a null array is the
// setup order. Never blended.
struct spDrawOrderTimeline {
    spTimeline super;
    int framesCount;
    float* frames;  // times
    int** drawOrders;
    int slotsCount;
};

spDrawOrderTimeline* spDrawOrderTimeline_create(int framesCount, int slotsCount);
// Copies slotsCount indices, or stores null for the setup order.
void spDrawOrderTimeline_setFrame(spDrawOrderTimeline* self, int frameIndex, float time, const int* drawOrder);
