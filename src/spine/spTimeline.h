#pragma once

struct spSkeleton;
struct spEvent;

enum spTimelineType {
    SP_TIMELINE_ROTATE,
    SP_TIMELINE_TRANSLATE,
    SP_TIMELINE_SCALE,
    SP_TIMELINE_SHEAR,
    SP_TIMELINE_ATTACHMENT,
    SP_TIMELINE_COLOR,
    SP_TIMELINE_DEFORM,
    SP_TIMELINE_EVENT,
    SP_TIMELINE_DRAWORDER,
    SP_TIMELINE_IKCONSTRAINT,
    SP_TIMELINE_TRANSFORMCONSTRAINT,
    SP_TIMELINE_PATHCONSTRAINTPOSITION,
    SP_TIMELINE_PATHCONSTRAINTSPACING,
    SP_TIMELINE_PATHCONSTRAINTMIX
};

// Base record of every timeline: keyed values of one property over time.
// `apply` poses the skeleton at `time`, blending by alpha (1 sets the value);
// event timelines append to firedEvents, which must hold
// spTimeline_maxFiredEvents more entries.
struct spTimeline {
    spTimelineType type;
    void (*apply)(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time, spEvent** firedEvents,
                  int* eventsCount, float alpha);
    void (*dispose)(spTimeline* self);
};

void _spTimeline_init(spTimeline* self, spTimelineType type,
                      void (*apply)(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                                    spEvent** firedEvents, int* eventsCount, float alpha),
                      void (*dispose)(spTimeline* self));
void spTimeline_dispose(spTimeline* self);
void spTimeline_apply(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                      spEvent** firedEvents, int* eventsCount, float alpha);
// Most events one apply can append (an event timeline may fire every key
// twice when the time wraps around a loop); 0 for other timelines.
int spTimeline_maxFiredEvents(const spTimeline* self);

// Per frame but the last: a type (0 linear, 1 stepped, 2 Bezier) and nine
// x, y samples of the Bezier curve.
#define SP_CURVE_LINEAR 0
#define SP_CURVE_STEPPED 1
#define SP_CURVE_BEZIER 2
#define SP_CURVE_SIZE 19

struct spCurveTimeline {
    spTimeline super;
    float* curves;
    int curvesCount;  // frames - 1
};

void _spCurveTimeline_init(spCurveTimeline* self, spTimelineType type, int framesCount,
                           void (*apply)(const spTimeline* self, spSkeleton* skeleton, float lastTime, float time,
                                         spEvent** firedEvents, int* eventsCount, float alpha),
                           void (*dispose)(spTimeline* self));
void _spCurveTimeline_deinit(spCurveTimeline* self);
void spCurveTimeline_setLinear(spCurveTimeline* self, int frameIndex);
void spCurveTimeline_setStepped(spCurveTimeline* self, int frameIndex);
// Control points of a cubic Bezier from (0, 0) to (1, 1).
void spCurveTimeline_setCurve(spCurveTimeline* self, int frameIndex, float cx1, float cy1, float cx2, float cy2);
float spCurveTimeline_getCurvePercent(const spCurveTimeline* self, int frameIndex, float percent);

// Index (in floats) of the first frame whose time lies above `time`, among
// frames of `step` floats; the caller has checked frames[0] <= time < the
// last frame's time, so the result is a valid frame after the first.
int _spTimeline_binarySearch(const float* frames, int framesLength, float time, int step);
