#include "spine/spTimeline.h"

#include "spine/spAllocator.h"
#include "spine/spEventTimeline.h"

void _spTimeline_init(spTimeline* self, spTimelineType type,
                      void (*apply)(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                                    spEvent** firedEvents, int* eventsCount, float alpha),
                      void (*dispose)(spTimeline* self)) {
    self->type = type;
    self->apply = apply;
    self->dispose = dispose;
}

void spTimeline_dispose(spTimeline* self) {
    if (self) self->dispose(self);
}

void spTimeline_apply(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                      spEvent** firedEvents, int* eventsCount, float alpha) {
    self->apply(self, skeleton, lastTime, time, firedEvents, eventsCount, alpha);
}

int spTimeline_maxFiredEvents(const spTimeline* self) {
    if (self->type != SP_TIMELINE_EVENT) return 0;
    return ((const spEventTimeline*)self)->framesCount * 2;
}

void _spCurveTimeline_init(spCurveTimeline* self, spTimelineType type, int framesCount,
                           void (*apply)(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                                         spEvent** firedEvents, int* eventsCount, float alpha),
                           void (*dispose)(spTimeline* self)) {
    _spTimeline_init(&self->super, type, apply, dispose);
    self->curvesCount = framesCount > 1 ? framesCount - 1 : 0;
    self->curves = SP_CALLOC(float, self->curvesCount * SP_CURVE_SIZE);
}

void _spCurveTimeline_deinit(spCurveTimeline* self) {
    SP_FREE(self->curves);
}

void spCurveTimeline_setLinear(spCurveTimeline* self, int frameIndex) {
    if (frameIndex < 0 || frameIndex >= self->curvesCount) return;
    self->curves[frameIndex * SP_CURVE_SIZE] = SP_CURVE_LINEAR;
}

void spCurveTimeline_setStepped(spCurveTimeline* self, int frameIndex) {
    if (frameIndex < 0 || frameIndex >= self->curvesCount) return;
    self->curves[frameIndex * SP_CURVE_SIZE] = SP_CURVE_STEPPED;
}

void spCurveTimeline_setCurve(spCurveTimeline* self, int frameIndex, float cx1, float cy1, float cx2, float cy2) {
    if (frameIndex < 0 || frameIndex >= self->curvesCount) return;
    // Forward differences of the cubic at steps of 0.1 give the nine inner
    // samples without evaluating the polynomial.
    float tmpx = (-cx1 * 2 + cx2) * 0.03f, tmpy = (-cy1 * 2 + cy2) * 0.03f;
    float dddfx = ((cx1 - cx2) * 3 + 1) * 0.006f, dddfy = ((cy1 - cy2) * 3 + 1) * 0.006f;
    float ddfx = tmpx * 2 + dddfx, ddfy = tmpy * 2 + dddfy;
    float dfx = cx1 * 0.3f + tmpx + dddfx * 0.16666667f, dfy = cy1 * 0.3f + tmpy + dddfy * 0.16666667f;
    float x = dfx, y = dfy;
    float* curve = self->curves + frameIndex * SP_CURVE_SIZE;
    curve[0] = SP_CURVE_BEZIER;
    for (int i = 1; i < SP_CURVE_SIZE; i += 2) {
        curve[i] = x;
        curve[i + 1] = y;
        dfx += ddfx;
        dfy += ddfy;
        ddfx += dddfx;
        ddfy += dddfy;
        x += dfx;
        y += dfy;
    }
}

float spCurveTimeline_getCurvePercent(const spCurveTimeline* self, int frameIndex, float percent) {
    if (percent < 0) percent = 0;
    else if (percent > 1) percent = 1;
    if (frameIndex < 0 || frameIndex >= self->curvesCount) return percent;
    const float* curve = self->curves + frameIndex * SP_CURVE_SIZE;
    float type = curve[0];
    if (type == SP_CURVE_LINEAR) return percent;
    if (type == SP_CURVE_STEPPED) return 0;
    float prevX = 0, prevY = 0;
    for (int i = 1; i < SP_CURVE_SIZE; i += 2) {
        float x = curve[i];
        if (x >= percent) {
            if (x - prevX <= 0) return curve[i + 1];
            return prevY + (curve[i + 1] - prevY) * (percent - prevX) / (x - prevX);
        }
        prevX = x;
        prevY = curve[i + 1];
    }
    if (1 - prevX <= 0) return 1;
    return prevY + (1 - prevY) * (percent - prevX) / (1 - prevX);
}

int _spTimeline_binarySearch(const float* frames, int framesLength, float time, int step) {
    int count = framesLength / step;
    int low = 1, high = count - 1;
    while (low < high) {
        int middle = (low + high) / 2;
        if (frames[middle * step] > time) high = middle;
        else low = middle + 1;
    }
    return low * step;
}
