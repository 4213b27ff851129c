#pragma once

#include "spine/spTimeline.h"

// Timelines of constraint settings. `frames` holds framesCount floats: per
// frame the time followed by the values.

#define SP_IKCONSTRAINT_ENTRIES 3
// Frames: time, mix, bend direction (blended mix, stepped bend).
struct spIkConstraintTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int ikConstraintIndex;
};

spIkConstraintTimeline* spIkConstraintTimeline_create(int framesCount);
void spIkConstraintTimeline_setFrame(spIkConstraintTimeline* self, int frameIndex, float time, float mix,
                                     int bendDirection);

#define SP_TRANSFORMCONSTRAINT_ENTRIES 5
// Frames: time, rotate, translate, scale and shear mixes.
struct spTransformConstraintTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int transformConstraintIndex;
};

spTransformConstraintTimeline* spTransformConstraintTimeline_create(int framesCount);
void spTransformConstraintTimeline_setFrame(spTransformConstraintTimeline* self, int frameIndex, float time,
                                            float rotateMix, float translateMix, float scaleMix, float shearMix);

#define SP_PATHCONSTRAINTPOSITION_ENTRIES 2
// Frames: time, value. One record serves position and spacing.
struct spPathConstraintPositionTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int pathConstraintIndex;
};
typedef spPathConstraintPositionTimeline spPathConstraintSpacingTimeline;

spPathConstraintPositionTimeline* spPathConstraintPositionTimeline_create(int framesCount);
spPathConstraintSpacingTimeline* spPathConstraintSpacingTimeline_create(int framesCount);
void spPathConstraintPositionTimeline_setFrame(spPathConstraintPositionTimeline* self, int frameIndex, float time,
                                               float value);

#define SP_PATHCONSTRAINTMIX_ENTRIES 3
// Frames: time, rotate mix, translate mix.
struct spPathConstraintMixTimeline {
    spCurveTimeline super;
    int framesCount;
    float* frames;
    int pathConstraintIndex;
};

spPathConstraintMixTimeline* spPathConstraintMixTimeline_create(int framesCount);
void spPathConstraintMixTimeline_setFrame(spPathConstraintMixTimeline* self, int frameIndex, float time,
                                          float rotateMix, float translateMix);
