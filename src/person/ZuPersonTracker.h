#pragma once

#include "basesys/ZuRefObject.h"
#include "render/math/ZuMat4.h"
#include "render/math/ZuRect.h"
#include "render/math/ZuVec3.h"

class ZuAppMain;

// The face geometry of one person, derived on every detection update from
// its landmarks: eye line, head axis, scale and rotation. Face effects read
// the fields directly, so they stay public.
class ZuPersonTracker : public ZuRefObject {
public:
    static constexpr int kContourCount = 10;
    // Contour, then the two mouth corners, then the two nose wings.
    static constexpr int kContourPointCount = kContourCount + 4;

    void init(ZuAppMain* app);
    void destroy();

    // points: the person's landmarks as x, y pairs in engine pixels.
    void track_as(const char* scene, void* points, ZuRect* rect, int personID);
    void track_st(const char* scene, void* points, ZuRect* rect, int personID);
    void track_fp(const char* scene, void* points, ZuRect* rect, int personID);
    void track_self(const char* scene, void* points, ZuRect* rect, int personID);

    int personID = 0;
    float cameraWidth = 1024.0f;
    float cameraHeight = 1024.0f;
    bool mouthOpen = false;
    bool leftEyeClosed = false;
    bool rightEyeClosed = false;
    bool wholeFace = false;
    ZuVec3 mouthCenter, leftEye, rightEye, noseMiddle, noseTip, noseRoot, chin;
    ZuRect faceRect;
    ZuVec3 axisTop, axisBottom;
    ZuVec3 xAxis, yAxis, zAxis;
    ZuVec3 contourPoints[kContourPointCount];
    float eyeDistance = 0.0f;
    float axisLength = 0.0f;
    ZuMat4 faceMatrix;
    float leftEyeAxisDistance = 0.0f;
    float rightEyeAxisDistance = 0.0f;
    float eyeDistanceCopy = 0.0f;
    float scaleX = 0.0f;
    float scaleY = 0.0f;
    float eyeLineAngle = 0.0f; // degrees
    float rollMask = 0.0f;     // radians

    // Which landmark of a back end plays which part.
    struct Layout {
        int pointCount;
        int mouthTest[2];
        int mouthWidth[2];
        int eyeReference[2]; // -1: the back end has none, eyeClosedLimit applies
        float eyeClosedLimit;
        int leftLid[2];
        int rightLid[2];
        int leftEye, rightEye;
        int noseRoot, noseMiddle, noseTip, axisBottom;
        int mouthCenter[2];
        int chin;
        int contour[kContourCount];
        int mouthCorners[2];
        int noseWings[2];
    };
    static const Layout kLayoutAS;
    static const Layout kLayoutSTFP;
    static const Layout kLayoutSelf;

private:
    void track(const Layout& layout, const char* scene, const float* points, const ZuRect* rect, int id);
    void updateWholeFace(const char* scene, bool whole);
    // Eye line, head axis and the frame they span.
    void baseStep();

    ZuAppMain* app = nullptr;
};
