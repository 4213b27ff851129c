#include "person/ZuPersonTracker.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPersonEvent.h"
#include "platform/ZuLog.h"

#include <algorithm>
#include <cmath>

namespace {

// Event kinds a whole-face change is sent with.
constexpr int kEventWholeFace = 15;
constexpr int kEventNotWholeFace = 16;
// An eye counts as closed below this share of the eye reference distance,
// capped so that a face close to the camera can still blink.
constexpr float kEyeClosedShare = 0.12f;
constexpr float kEyeClosedCap = 18.0f;
// The frame less this margin on each side must overlap the face rectangle.
constexpr float kFrameMargin = 0.05f;
// Design eye distance and head axis length the scales are relative to.
constexpr float kDesignEyeDistance = 260.0f;
constexpr float kDesignAxisLength = 160.0f;

ZuVec3 pointAt(const float* points, int index) {
    return ZuVec3(points[index * 2], points[index * 2 + 1], 0.0f);
}

float distance(const float* points, const int pair[2]) {
    return (pointAt(points, pair[1]) - pointAt(points, pair[0])).length();
}

// Distance of p from the line through a and b. An axis exactly along x or y
// takes the plain coordinate difference, which also covers a == b.
float distanceFromLine(const ZuVec3& p, const ZuVec3& a, const ZuVec3& b) {
    const float dx = b.x - a.x;
    const float dy = b.y - a.y;
    if (dx == 0.0f) return std::fabs(p.x - a.x);
    if (dy == 0.0f) return std::fabs(p.y - a.y);
    return std::fabs(dx * (p.y - a.y) - dy * (p.x - a.x)) / std::sqrt(dx * dx + dy * dy);
}

} // namespace

const ZuPersonTracker::Layout ZuPersonTracker::kLayoutAS = {
    101, {89, 93}, {75, 81}, {97, 99}, kEyeClosedCap, {42, 48}, {54, 60}, 95, 96, 97, 98, 99, 100, {89, 93}, 9,
    {3, 15, 2, 16, 4, 14, 5, 13, 7, 11}, {75, 81}, {66, 71}};
const ZuPersonTracker::Layout ZuPersonTracker::kLayoutSTFP = {
    106, {98, 102}, {75, 81}, {97, 99}, kEyeClosedCap, {72, 73}, {76, 75}, 74, 77, 43, 45, 46, 49, {98, 102}, 16,
    {5, 27, 4, 28, 6, 26, 10, 22, 13, 19}, {84, 90}, {82, 83}};
const ZuPersonTracker::Layout ZuPersonTracker::kLayoutSelf = {
    70, {51, 66}, {48, 54}, {-1, -1}, 24.0f, {38, 40}, {44, 46}, 68, 69, 27, 29, 30, 33, {62, 66}, 8,
    {3, 13, 2, 14, 4, 12, 5, 11, 7, 9}, {48, 54}, {31, 35}};

void ZuPersonTracker::init(ZuAppMain* application) {
    app = application;
}

void ZuPersonTracker::destroy() {
    app = nullptr;
}

void ZuPersonTracker::track_as(const char* scene, void* points, ZuRect* rect, int id) {
    track(kLayoutAS, scene, static_cast<const float*>(points), rect, id);
}

void ZuPersonTracker::track_st(const char* scene, void* points, ZuRect* rect, int id) {
    track(kLayoutSTFP, scene, static_cast<const float*>(points), rect, id);
}

void ZuPersonTracker::track_fp(const char* scene, void* points, ZuRect* rect, int id) {
    track(kLayoutSTFP, scene, static_cast<const float*>(points), rect, id);
}

void ZuPersonTracker::track_self(const char* scene, void* points, ZuRect* rect, int id) {
    track(kLayoutSelf, scene, static_cast<const float*>(points), rect, id);
}

void ZuPersonTracker::track(const Layout& layout, const char* scene, const float* points, const ZuRect* rect,
                            int id) {
    if (!points || !rect) {
        QZLOGW("ZuPersonTracker: no landmarks or rectangle for person %d, nothing tracked", id);
        return;
    }
    personID = id;
    ZuConfig* config = ZuGBase::configOf(app);
    if (config) {
        const Camera* camera = config->getCamera(scene ? scene : "");
        cameraWidth = static_cast<float>(camera->width);
        cameraHeight = static_cast<float>(camera->height);
    }
    faceRect = *rect;

    const ZuVec3 root = pointAt(points, layout.noseRoot);
    const ZuVec3 bottom = pointAt(points, layout.axisBottom);
    rollMask = std::atan2(root.y - bottom.y, root.x - bottom.x);

    // y counts from the bottom, so the margin's top edge is the higher value.
    const float marginLeft = cameraWidth * kFrameMargin;
    const float marginRight = cameraWidth * (1.0f - kFrameMargin);
    const float marginTop = cameraHeight * (1.0f - kFrameMargin);
    const float marginBottom = cameraHeight * kFrameMargin;
    const float rectLow = std::min(rect->top, rect->bottom);
    const float rectHigh = std::max(rect->top, rect->bottom);
    updateWholeFace(scene, rect->left < marginRight && rect->right > marginLeft && rectLow < marginTop &&
                               rectHigh > marginBottom);

    mouthOpen = distance(points, layout.mouthTest) > 0.5f * distance(points, layout.mouthWidth);
    float closedLimit = layout.eyeClosedLimit;
    if (layout.eyeReference[0] >= 0)
        closedLimit = std::min(kEyeClosedShare * distance(points, layout.eyeReference), kEyeClosedCap);
    leftEyeClosed = distance(points, layout.leftLid) < closedLimit;
    rightEyeClosed = distance(points, layout.rightLid) < closedLimit;

    leftEye = pointAt(points, layout.leftEye);
    rightEye = pointAt(points, layout.rightEye);
    noseRoot = root;
    noseMiddle = pointAt(points, layout.noseMiddle);
    noseTip = pointAt(points, layout.noseTip);
    axisTop = root;
    axisBottom = bottom;
    mouthCenter = (pointAt(points, layout.mouthCenter[0]) + pointAt(points, layout.mouthCenter[1])) * 0.5f;
    chin = pointAt(points, layout.chin);
    for (int i = 0; i < kContourCount; ++i) contourPoints[i] = pointAt(points, layout.contour[i]);
    for (int i = 0; i < 2; ++i) {
        contourPoints[kContourCount + i] = pointAt(points, layout.mouthCorners[i]);
        contourPoints[kContourCount + 2 + i] = pointAt(points, layout.noseWings[i]);
    }
    baseStep();
}

void ZuPersonTracker::updateWholeFace(const char* scene, bool whole) {
    if (whole == wholeFace) return;
    wholeFace = whole;
    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (!events) return;
    ZuPersonEvent* event = new ZuPersonEvent(scene ? scene : "", whole ? kEventWholeFace : kEventNotWholeFace);
    event->name = whole ? "haveWholeFace" : "NotWholeFace";
    event->personID = personID;
    if (!events->pushEvent(event)) event->release();
}

void ZuPersonTracker::baseStep() {
    const ZuVec3 eyeLine = rightEye - leftEye;
    eyeDistance = eyeLine.length();
    axisLength = (axisBottom - axisTop).length();
    eyeLineAngle = std::atan2(eyeLine.y, eyeLine.x) * 57.29578f;
    leftEyeAxisDistance = distanceFromLine(leftEye, axisTop, axisBottom);
    rightEyeAxisDistance = distanceFromLine(rightEye, axisTop, axisBottom);
    eyeDistanceCopy = eyeDistance;
    scaleX = eyeDistance / kDesignEyeDistance;
    scaleY = axisLength / kDesignAxisLength;

    xAxis = eyeLine.normalized();
    yAxis = ZuVec3(-xAxis.y, xAxis.x, 0.0f).normalized();
    zAxis = ZuVec3(0.0f, 0.0f, 1.0f);

    // Rows are the face axes; the storage is column-major.
    const ZuVec3 rows[3] = {xAxis, yAxis, zAxis};
    faceMatrix.identity();
    for (int r = 0; r < 3; ++r) {
        faceMatrix.m[r] = rows[r].x;
        faceMatrix.m[4 + r] = rows[r].y;
        faceMatrix.m[8 + r] = rows[r].z;
    }
}
