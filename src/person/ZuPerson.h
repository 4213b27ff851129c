#pragma once

#include "basesys/ZuListenBase.h"
#include "basesys/qzString.h"
#include "data/DETECTTYPE.h"
#include "data/SELF_FACE_OTHER.h"
#include "render/math/ZuRect.h"

#include <cstdint>

class ZuAppMain;
class ZuDataGenAS;
class ZuDataGenFP;
class ZuDataGenST;
class ZuDataGenSelf;
class ZuDataGenerate;
class ZuPersonTracker;
class ZuPersonExpressionExt;
class ZuPersonAnimojiMgr;
class ZuPersonCopyTarget;
struct StanderFace;

// One slot for a face in one scene. It follows the generator of its back end,
// keeps the landmarks, rectangle and angles of the face with its id, runs the
// geometry tracker on them and tells its own listeners after each update.
class ZuPerson : public ZuListenBase {
public:
    static constexpr int kMaxFaceValues = 400; // x, y pairs
    static constexpr int kTargetValues = 800;
    static constexpr int kAsPointCount = 101;

    ZuPerson();
    ~ZuPerson() override;

    void init(ZuAppMain* app);
    void destroy();
    // A hook for per-frame work; persons change only when data arrives.
    void update(float delta) {}

    // Moves to another back end: off the old generator, on the new one.
    void setDetectType(DETECTTYPE type);
    // Registered on the generator of the current back end.
    void listenData(ZuObject* source);

    void setPersonID(int id) { personID = id; }
    void setSceneName(const char* name) { sceneName = name ? name : ""; }
    void setExistState(int state) { existState = state; }
    void SetShouldCorrect(bool value) { shouldCorrect = value; }
    bool GetShouldCorrect() const { return shouldCorrect; }
    // The standard face whose proportions the target face takes (AS only).
    void setCopyTarget(const char* name);
    // On: getFaceDataX/Y read the reshaped target face; off: the live one.
    void enableCopyTarget(bool enabled) { copyTargetEnabled = enabled; }

    float* getFaceData() { return faceData; }
    // 0 outside the back end's landmark count.
    float getFaceDataX(int i) const;
    float getFaceDataY(int i) const;
    int getFacePtNum() const { return facePtNum; }
    // The back end's simplified standard face; 0 outside it or without one.
    float getStandardFaceDataX(int i) const;
    float getStandardFaceDataY(int i) const;
    int getPersonID() const { return personID; }
    // A face of this id in the latest record, or kept present by "alwaysShowOne".
    bool getExist() const { return existState == 1 || existState == 2; }
    int getExistState() const { return existState; }
    const char* getSceneName() const { return sceneName.c_str(); }
    DETECTTYPE getDetectType() const { return detectType; }
    float getRoll() const { return roll; }
    float getPitch() const { return pitch; }
    float getYaw() const { return yaw; }
    float getRTop() const { return rectTop; }
    float getRBottom() const { return rectBottom; }
    float getRLeft() const { return rectLeft; }
    float getRRight() const { return rectRight; }
    const float* getMatM() const { return matM; }
    const float* getMatV() const { return matV; }
    const float* getMatP() const { return matP; }
    const float* getFace3dData() const { return face3dData; }
    const uint8_t* getEyeData() const { return eyeData; }
    ZuPersonTracker* getTracker() const { return tracker; }
    ZuPersonExpressionExt* getPersonExpression() const { return expression; }
    ZuPersonAnimojiMgr* getPersonAnimoji() const { return animojiMgr; }
    ZuPersonAnimojiMgr* getAnimojiMgr() const { return animojiMgr; }
    const SELF_FACE_OTHER* getROther() const { return &other; }
    const float* getTargetFaceData() const { return targetFaceData; }

    // The landmark count each back end delivers; 0 for none.
    static int pointCountOf(DETECTTYPE type);
    // Name of the back end's simplified standard face, or null.
    static const char* standardFaceNameOf(DETECTTYPE type);

private:
    void _listenData_AS(ZuDataGenAS* gen);
    void _listenData_ST(ZuDataGenST* gen);
    void _listenData_FP(ZuDataGenFP* gen);
    void _listenData_self(ZuDataGenSelf* gen);

    // Shared by every back end: angles, rectangle and landmarks of a valid
    // record, or the no-face state with the centred standard face.
    template <class Record> void takeRecord(const Record& record);
    // Hands a present face to the expression recogniser.
    void trackExpression(ZuRect* r);
    // Hands a present FP face to the blend-shape tracker.
    void trackAnimoji();
    // Tells this person's listeners under its own lock.
    void noticeOwnListeners();
    ZuRect rect() const { return ZuRect(rectLeft, rectRight, rectTop, rectBottom); }

    // The standard face of the current back end, or null.
    const StanderFace* standardFace() const;
    // The standard face centred in the real (rotated) camera frame.
    void convert_standerface(const StanderFace* face, float* out) const;
    ZuDataGenerate* generatorOf(DETECTTYPE type) const;
    // Reshapes the target face into the named standard face's proportions;
    // an unknown name leaves it the live landmarks.
    void _modifyPointToPerson_AS(const char* name);

    DETECTTYPE detectType = DETECTTYPE_NONE;
    int facePtNum = 0;
    float* faceData = nullptr;
    uint8_t eyeData[24] = {};
    float matM[16] = {};
    float matV[16] = {};
    float matP[16] = {};
    float face3dData[kAsPointCount * 3] = {};
    ZuPersonTracker* tracker = nullptr;
    ZuPersonExpressionExt* expression = nullptr;
    ZuPersonAnimojiMgr* animojiMgr = nullptr;
    int personID = 0;
    int existState = 0;
    float yaw = 0.0f, pitch = 0.0f, roll = 0.0f;
    float rectLeft = 0.0f, rectRight = 0.0f, rectTop = 0.0f, rectBottom = 0.0f;
    qz::string sceneName;
    SELF_FACE_OTHER other;
    // Set while a generator is telling this person: its listener lock is
    // held, so the person must not change its registrations then.
    bool listening = false;
    ZuAppMain* app = nullptr;
    bool shouldCorrect = false;
    float standardTargetPoints[kTargetValues] = {};
    float targetFaceData[kTargetValues] = {};
    qz::string copyTargetName;
    bool copyTargetEnabled = false;
    ZuPersonCopyTarget* copyTarget = nullptr;
    // A missing copy target face is told once per name, not every frame.
    bool copyTargetMissingLogged = false;
};
