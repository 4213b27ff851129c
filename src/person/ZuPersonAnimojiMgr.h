#pragma once

#include "basesys/ZuGBase.h"
#include "data/DETECTTYPE.h"
#include "person/MORPHINDEX.h"
#include "person/ZuPoint.h"

class ZuPersonAnimojiBase;
class ZuPosData;

// One person's animoji tracking: smooths the head pose, turns the landmarks
// into the working frame and hands them to the tracker of the back end.
// Only FP has a tracker; with any other back end there are no values.
class ZuPersonAnimojiMgr : public ZuGBase {
public:
    static constexpr int kPointCount = 106;

    explicit ZuPersonAnimojiMgr(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuPersonAnimojiMgr() override { destroy(); }

    // Nothing for type 0 or the type already held. Otherwise builds the
    // tracker (FP only) and reads the position table.
    void init(DETECTTYPE type);
    void destroy();

    // points: the person's 106 landmark pairs; angles in degrees; the camera
    // rotation of the scene. Non-finite input is refused.
    void detect(float* points, int cameraRotation, float roll, float yaw, float pitch);

    float getValue(MORPHINDEX index) const;
    // The 52 weights, or null without a tracker.
    const float* getValues() const;
    float getRoll() const { return headRoll; }
    float getYaw() const { return headYaw; }
    float getPitch() const { return headPitch; }
    bool getHeadKeepMoving() const;

    DETECTTYPE getDetectType() const { return detectType; }
    ZuPersonAnimojiBase* getTracker() const { return tracker; }
    ZuPosData* getPosData() const { return posData; }
    float getMotion() const { return motion; }
    int getMovingCount() const { return movingCount; }
    const ZuPoint* getWorkingPoints() const { return points; }

private:
    // Motion: how far the sum of all landmarks moved since it last changed.
    void _getND();

    DETECTTYPE detectType = DETECTTYPE_NONE;
    ZuPosData* posData = nullptr;
    ZuPersonAnimojiBase* tracker = nullptr;
    ZuPoint points[kPointCount];
    ZuPoint lastSum;
    float motion = 0.0f;
    float previousMotion = 0.0f;
    float headRoll = 0.0f, headYaw = 0.0f, headPitch = 0.0f;
    float previousRoll = 0.0f, previousYaw = 0.0f, previousPitch = 0.0f;
    int movingCount = 0;
};
