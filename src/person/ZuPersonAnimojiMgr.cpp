#include "person/ZuPersonAnimojiMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "person/ZuPersonAnimoji_FP.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPosData.h"
#include "platform/ZuLog.h"

#include <cmath>

namespace {

float lerp(float from, float to, float t) { return from + (to - from) * t; }

} // namespace

void ZuPersonAnimojiMgr::init(DETECTTYPE type) {
    if (type == DETECTTYPE_NONE || type == detectType) return;
    // A change of back end starts over: the old tracker measured other points.
    qzSafeRelease(tracker);
    qzSafeRelease(posData);
    detectType = type;
    if (type == DETECTTYPE_FP) tracker = new ZuPersonAnimoji_FP(app);
    // The table is the same for every person: the engine reads it once.
    ZuPersonSys* persons = personSys();
    posData = persons ? persons->retainPositionTable() : nullptr;
    if (!posData) {
        posData = new ZuPosData(app);
        posData->init(ZuPosData::kDefaultFile);
    }
    if (tracker) tracker->setPosData(posData);
}

void ZuPersonAnimojiMgr::destroy() {
    qzSafeRelease(tracker);
    qzSafeRelease(posData);
    detectType = DETECTTYPE_NONE;
}

void ZuPersonAnimojiMgr::detect(float* facePoints, int cameraRotation, float roll, float yaw, float pitch) {
    if (!facePoints) return;
    if (!std::isfinite(roll) || !std::isfinite(yaw) || !std::isfinite(pitch)) {
        QZLOGW("animoji: head angles not finite, frame refused");
        return;
    }
    for (int i = 0; i < kPointCount * 2; ++i) {
        // One bad value would stick in the motion and the smoothing for good.
        if (!std::isfinite(facePoints[i])) {
            QZLOGW("animoji: landmark %d not finite, frame refused", i / 2);
            return;
        }
    }

    // Under a 270 degree camera the roll is read one full turn lower, the range
    // the character models take it in.
    const float r = cameraRotation == 270 && roll != 0.0f ? roll - 360.0f : roll;

    // Motion is what the previous call measured; two large moves in a row
    // make the pose follow faster than one.
    if (motion != previousMotion) {
        if (motion >= 40.0f)
            ++movingCount;
        else
            movingCount = 0;
    }
    previousMotion = motion;
    const float k = movingCount >= 2 ? 0.3f : (movingCount == 1 ? 0.15f : 0.0f);
    // With k 0 the pose stands still: small jitter never reaches the model.
    headRoll = lerp(previousRoll, r * 1.2f, k);
    headYaw = lerp(previousYaw, yaw * 1.2f, k);
    headPitch = lerp(previousPitch, pitch * 1.6f, k);
    previousRoll = headRoll;
    previousYaw = headYaw;
    previousPitch = headPitch;

    const bool upright = cameraRotation == 0 || cameraRotation == 360;
    for (int i = 0; i < kPointCount; ++i) {
        const float x = facePoints[i * 2], y = facePoints[i * 2 + 1];
        points[i].x = upright ? x : y;
        points[i].y = upright ? y : x;
    }

    if (!tracker) return;
    _getND();
    tracker->detect(points, motion, r, yaw, pitch);
}

void ZuPersonAnimojiMgr::_getND() {
    ZuPoint sum;
    for (const ZuPoint& p : points) {
        sum.x += p.x;
        sum.y += p.y;
    }
    // Identical landmarks (the same record again) keep the old motion.
    const float moved = ZuPoint::vector2Distance(sum, lastSum);
    if (moved != 0.0f) motion = moved;
    lastSum = sum;
}

float ZuPersonAnimojiMgr::getValue(MORPHINDEX index) const { return tracker ? tracker->getValue(index) : 0.0f; }

const float* ZuPersonAnimojiMgr::getValues() const { return tracker ? tracker->getValues() : nullptr; }

bool ZuPersonAnimojiMgr::getHeadKeepMoving() const { return tracker && tracker->getHeadKeepMoving(); }
