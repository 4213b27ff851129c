#pragma once

#include "spine/spTimeline.h"

// Timelines of a bone's local pose. `frames` holds framesCount floats: per
// frame the time followed by the frame's values.

#define SP_ROTATE_ENTRIES 2
// Frames: time, angle in degrees relative to the setup rotation.
struct spRotateTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int boneIndex;
};

spRotateTimeline* spRotateTimeline_create(int framesCount);
void spRotateTimeline_setFrame(spRotateTimeline* self, int frameIndex, float time, float angle);

#define SP_TRANSLATE_ENTRIES 3
// Frames: time, x, y. Translate and shear add to the setup values; scale
// multiplies them.
struct spTranslateTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int boneIndex;
};
typedef spTranslateTimeline spScaleTimeline;
typedef spTranslateTimeline spShearTimeline;

spTranslateTimeline* spTranslateTimeline_create(int framesCount);
spScaleTimeline* spScaleTimeline_create(int framesCount);
spShearTimeline* spShearTimeline_create(int framesCount);
void spTranslateTimeline_setFrame(spTranslateTimeline* self, int frameIndex, float time, float x, float y);
