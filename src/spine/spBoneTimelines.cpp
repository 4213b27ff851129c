#include "spine/spBoneTimelines.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spBoneData.h"
#include "spine/spMath.h"
#include "spine/spSkeleton.h"

namespace {

void disposeRotate(spTimeline* timeline) {
    spRotateTimeline* self = (spRotateTimeline*)timeline;
    _spCurveTimeline_deinit(&self->super);
    SP_FREE(self->frames);
    SP_FREE(self);
}

void applyRotate(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                 int* eventsCount, float alpha) {
    const spRotateTimeline* self = (const spRotateTimeline*)timeline;
    const float* frames = self->frames;
    if (self->framesCount < SP_ROTATE_ENTRIES || !(time >= frames[0])) return;
    spBone* bone = skeleton->bones[self->boneIndex];
    float setup = bone->data->rotation;

    if (time >= frames[self->framesCount - SP_ROTATE_ENTRIES]) {
        float amount = spWrapDegrees(setup + frames[self->framesCount - 1] - bone->rotation);
        bone->rotation += amount * alpha;
        return;
    }

    int frame = _spTimeline_binarySearch(frames, self->framesCount, time, SP_ROTATE_ENTRIES);
    float prevAngle = frames[frame - 1];
    float frameTime = frames[frame], prevTime = frames[frame - SP_ROTATE_ENTRIES];
    float percent = 1 - (time - frameTime) / (prevTime - frameTime);
    percent = spCurveTimeline_getCurvePercent(&self->super, frame / SP_ROTATE_ENTRIES - 1, percent);

    // Turn the short way between the two keys.
    float delta = spWrapDegrees(frames[frame + 1] - prevAngle);
    float amount = spWrapDegrees(setup + (prevAngle + delta * percent) - bone->rotation);
    bone->rotation += amount * alpha;
}

void disposeTranslate(spTimeline* timeline) {
    spTranslateTimeline* self = (spTranslateTimeline*)timeline;
    _spCurveTimeline_deinit(&self->super);
    SP_FREE(self->frames);
    SP_FREE(self);
}

// Keyed x, y at `time`; false before the first frame.
bool sampleXY(const spTranslateTimeline* self, float time, float* x, float* y) {
    const float* frames = self->frames;
    if (self->framesCount < SP_TRANSLATE_ENTRIES || !(time >= frames[0])) return false;
    if (time >= frames[self->framesCount - SP_TRANSLATE_ENTRIES]) {
        *x = frames[self->framesCount - 2];
        *y = frames[self->framesCount - 1];
        return true;
    }
    int frame = _spTimeline_binarySearch(frames, self->framesCount, time, SP_TRANSLATE_ENTRIES);
    float prevX = frames[frame - 2], prevY = frames[frame - 1];
    float frameTime = frames[frame], prevTime = frames[frame - SP_TRANSLATE_ENTRIES];
    float percent = 1 - (time - frameTime) / (prevTime - frameTime);
    percent = spCurveTimeline_getCurvePercent(&self->super, frame / SP_TRANSLATE_ENTRIES - 1, percent);
    *x = prevX + (frames[frame + 1] - prevX) * percent;
    *y = prevY + (frames[frame + 2] - prevY) * percent;
    return true;
}

void applyTranslate(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time,
                    spEvent** events, int* eventsCount, float alpha) {
    const spTranslateTimeline* self = (const spTranslateTimeline*)timeline;
    float x, y;
    if (!sampleXY(self, time, &x, &y)) return;
    spBone* bone = skeleton->bones[self->boneIndex];
    bone->x += (bone->data->x + x - bone->x) * alpha;
    bone->y += (bone->data->y + y - bone->y) * alpha;
}

void applyScale(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                int* eventsCount, float alpha) {
    const spScaleTimeline* self = (const spScaleTimeline*)timeline;
    float x, y;
    if (!sampleXY(self, time, &x, &y)) return;
    spBone* bone = skeleton->bones[self->boneIndex];
    bone->scaleX += (bone->data->scaleX * x - bone->scaleX) * alpha;
    bone->scaleY += (bone->data->scaleY * y - bone->scaleY) * alpha;
}

void applyShear(const spTimeline* timeline, spSkeleton* skeleton, float lastTime, float time, spEvent** events,
                int* eventsCount, float alpha) {
    const spShearTimeline* self = (const spShearTimeline*)timeline;
    float x, y;
    if (!sampleXY(self, time, &x, &y)) return;
    spBone* bone = skeleton->bones[self->boneIndex];
    bone->shearX += (bone->data->shearX + x - bone->shearX) * alpha;
    bone->shearY += (bone->data->shearY + y - bone->shearY) * alpha;
}

spTranslateTimeline* createXY(int framesCount, spTimelineType type,
                              void (*apply)(const spTimeline*, spSkeleton*, float, float, spEvent**, int*, float)) {
    spTranslateTimeline* self = SP_NEW(spTranslateTimeline);
    _spCurveTimeline_init(&self->super, type, framesCount, apply, disposeTranslate);
    self->framesCount = framesCount * SP_TRANSLATE_ENTRIES;
    self->frames = SP_CALLOC(float, self->framesCount);
    return self;
}

} // namespace

spRotateTimeline* spRotateTimeline_create(int framesCount) {
    spRotateTimeline* self = SP_NEW(spRotateTimeline);
    _spCurveTimeline_init(&self->super, SP_TIMELINE_ROTATE, framesCount, applyRotate, disposeRotate);
    self->framesCount = framesCount * SP_ROTATE_ENTRIES;
    self->frames = SP_CALLOC(float, self->framesCount);
    return self;
}

void spRotateTimeline_setFrame(spRotateTimeline* self, int frameIndex, float time, float angle) {
    int i = frameIndex * SP_ROTATE_ENTRIES;
    if (frameIndex < 0 || i >= self->framesCount) return;
    self->frames[i] = time;
    self->frames[i + 1] = angle;
}

spTranslateTimeline* spTranslateTimeline_create(int framesCount) {
    return createXY(framesCount, SP_TIMELINE_TRANSLATE, applyTranslate);
}

spScaleTimeline* spScaleTimeline_create(int framesCount) {
    return createXY(framesCount, SP_TIMELINE_SCALE, applyScale);
}

spShearTimeline* spShearTimeline_create(int framesCount) {
    return createXY(framesCount, SP_TIMELINE_SHEAR, applyShear);
}

void spTranslateTimeline_setFrame(spTranslateTimeline* self, int frameIndex, float time, float x, float y) {
    int i = frameIndex * SP_TRANSLATE_ENTRIES;
    if (frameIndex < 0 || i >= self->framesCount) return;
    self->frames[i] = time;
    self->frames[i + 1] = x;
    self->frames[i + 2] = y;
}
