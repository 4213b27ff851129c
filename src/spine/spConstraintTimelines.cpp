#include "spine/spConstraintTimelines.h"

#include "spine/spAllocator.h"
#include "spine/spIkConstraint.h"
#include "spine/spPathConstraint.h"
#include "spine/spSkeleton.h"
#include "spine/spTransformConstraint.h"

namespace {

template <typename T>
void disposeKeyed(spTimeline* timeline) {
    T* self = (T*)timeline;
    _spCurveTimeline_deinit(&self->super);
    SP_FREE(self->frames);
    SP_FREE(self);
}

// Interpolates `valueCount` values after the time of each frame of `entries`
// floats. Returns the frame used for stepped values (the frame at or before
// time), or -1 before the first frame.
template <typename T>
int sample(const T* self, float time, int entries, int valueCount, float* values) {
    const float* frames = self->frames;
    if (self->framesCount < entries || !(time >= frames[0])) return -1;
    int last = self->framesCount - entries;
    if (time >= frames[last]) {
        for (int i = 0; i < valueCount; i++) values[i] = frames[last + 1 + i];
        return last;
    }
    int frame = _spTimeline_binarySearch(frames, self->framesCount, time, entries);
    int prev = frame - entries;
    float percent = 1 - (time - frames[frame]) / (frames[prev] - frames[frame]);
    percent = spCurveTimeline_getCurvePercent(&self->super, frame / entries - 1, percent);
    for (int i = 0; i < valueCount; i++) {
        float from = frames[prev + 1 + i];
        values[i] = from + (frames[frame + 1 + i] - from) * percent;
    }
    return prev;
}

void applyIk(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
             int* eventsCount, float alpha) {
    const spIkConstraintTimeline* self = (const spIkConstraintTimeline*)timeline;
    float mix;
    int frame = sample(self, time, SP_IKCONSTRAINT_ENTRIES, 1, &mix);
    if (frame < 0) return;
    spIkConstraint* constraint = skeleton->ikConstraints[self->ikConstraintIndex];
    constraint->mix += (mix - constraint->mix) * alpha;
    constraint->bendDirection = self->frames[frame + 2] < 0 ? -1 : 1;
}

void applyTransform(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                    int* eventsCount, float alpha) {
    const spTransformConstraintTimeline* self = (const spTransformConstraintTimeline*)timeline;
    float mixes[4];
    if (sample(self, time, SP_TRANSFORMCONSTRAINT_ENTRIES, 4, mixes) < 0) return;
    spTransformConstraint* constraint = skeleton->transformConstraints[self->transformConstraintIndex];
    constraint->rotateMix += (mixes[0] - constraint->rotateMix) * alpha;
    constraint->translateMix += (mixes[1] - constraint->translateMix) * alpha;
    constraint->scaleMix += (mixes[2] - constraint->scaleMix) * alpha;
    constraint->shearMix += (mixes[3] - constraint->shearMix) * alpha;
}

void applyPosition(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                   int* eventsCount, float alpha) {
    const spPathConstraintPositionTimeline* self = (const spPathConstraintPositionTimeline*)timeline;
    float value;
    if (sample(self, time, SP_PATHCONSTRAINTPOSITION_ENTRIES, 1, &value) < 0) return;
    spPathConstraint* constraint = skeleton->pathConstraints[self->pathConstraintIndex];
    constraint->position += (value - constraint->position) * alpha;
}

void applySpacing(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                  int* eventsCount, float alpha) {
    const spPathConstraintPositionTimeline* self = (const spPathConstraintPositionTimeline*)timeline;
    float value;
    if (sample(self, time, SP_PATHCONSTRAINTPOSITION_ENTRIES, 1, &value) < 0) return;
    spPathConstraint* constraint = skeleton->pathConstraints[self->pathConstraintIndex];
    constraint->spacing += (value - constraint->spacing) * alpha;
}

void applyPathMix(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                  int* eventsCount, float alpha) {
    const spPathConstraintMixTimeline* self = (const spPathConstraintMixTimeline*)timeline;
    float mixes[2];
    if (sample(self, time, SP_PATHCONSTRAINTMIX_ENTRIES, 2, mixes) < 0) return;
    spPathConstraint* constraint = skeleton->pathConstraints[self->pathConstraintIndex];
    constraint->rotateMix += (mixes[0] - constraint->rotateMix) * alpha;
    constraint->translateMix += (mixes[1] - constraint->translateMix) * alpha;
}

template <typename T>
T* create(int framesCount, int entries, spTimelineType type,
          void (*apply)(const spTimeline*, spSkeleton*, float, float, spEvent**, int*, float)) {
    T* self = SP_NEW(T);
    _spCurveTimeline_init(&self->super, type, framesCount, apply, disposeKeyed<T>);
    self->framesCount = framesCount * entries;
    self->frames = SP_CALLOC(float, self->framesCount);
    return self;
}

bool frameStart(int framesCount, int entries, int frameIndex, int* i) {
    *i = frameIndex * entries;
    return frameIndex >= 0 && *i < framesCount;
}

} // namespace

spIkConstraintTimeline* spIkConstraintTimeline_create(int framesCount) {
    return create<spIkConstraintTimeline>(framesCount, SP_IKCONSTRAINT_ENTRIES, SP_TIMELINE_IKCONSTRAINT, applyIk);
}

void spIkConstraintTimeline_setFrame(spIkConstraintTimeline* self, int frameIndex, float time, float mix,
                                     int bendDirection) {
    int i;
    if (!frameStart(self->framesCount, SP_IKCONSTRAINT_ENTRIES, frameIndex, &i)) return;
    self->frames[i] = time;
    self->frames[i + 1] = mix;
    self->frames[i + 2] = (float)bendDirection;
}

spTransformConstraintTimeline* spTransformConstraintTimeline_create(int framesCount) {
    return create<spTransformConstraintTimeline>(framesCount, SP_TRANSFORMCONSTRAINT_ENTRIES,
                                                 SP_TIMELINE_TRANSFORMCONSTRAINT, applyTransform);
}

void spTransformConstraintTimeline_setFrame(spTransformConstraintTimeline* self, int frameIndex, float time,
                                            float rotateMix, float translateMix, float scaleMix, float shearMix) {
    int i;
    if (!frameStart(self->framesCount, SP_TRANSFORMCONSTRAINT_ENTRIES, frameIndex, &i)) return;
    self->frames[i] = time;
    self->frames[i + 1] = rotateMix;
    self->frames[i + 2] = translateMix;
    self->frames[i + 3] = scaleMix;
    self->frames[i + 4] = shearMix;
}

spPathConstraintPositionTimeline* spPathConstraintPositionTimeline_create(int framesCount) {
    return create<spPathConstraintPositionTimeline>(framesCount, SP_PATHCONSTRAINTPOSITION_ENTRIES,
                                                    SP_TIMELINE_PATHCONSTRAINTPOSITION, applyPosition);
}

spPathConstraintSpacingTimeline* spPathConstraintSpacingTimeline_create(int framesCount) {
    return create<spPathConstraintSpacingTimeline>(framesCount, SP_PATHCONSTRAINTPOSITION_ENTRIES,
                                                   SP_TIMELINE_PATHCONSTRAINTSPACING, applySpacing);
}

void spPathConstraintPositionTimeline_setFrame(spPathConstraintPositionTimeline* self, int frameIndex, float time,
                                               float value) {
    int i;
    if (!frameStart(self->framesCount, SP_PATHCONSTRAINTPOSITION_ENTRIES, frameIndex, &i)) return;
    self->frames[i] = time;
    self->frames[i + 1] = value;
}

spPathConstraintMixTimeline* spPathConstraintMixTimeline_create(int framesCount) {
    return create<spPathConstraintMixTimeline>(framesCount, SP_PATHCONSTRAINTMIX_ENTRIES,
                                               SP_TIMELINE_PATHCONSTRAINTMIX, applyPathMix);
}

void spPathConstraintMixTimeline_setFrame(spPathConstraintMixTimeline* self, int frameIndex, float time,
                                          float rotateMix, float translateMix) {
    int i;
    if (!frameStart(self->framesCount, SP_PATHCONSTRAINTMIX_ENTRIES, frameIndex, &i)) return;
    self->frames[i] = time;
    self->frames[i + 1] = rotateMix;
    self->frames[i + 2] = translateMix;
}
