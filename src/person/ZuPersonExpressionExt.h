#pragma once

#include "basesys/ZuAppMain.h"
#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"
#include "render/math/ZuRect.h"

class ZuDetectBase;

// Recognises the expressions of one person (eyes, mouth, head turn) from its
// landmarks by fixed geometric rules, at a limited rate, keeps them as states
// and sends them as person events for triggers and games.
class ZuPersonExpressionExt : public ZuRefObject {
public:
    static constexpr int kEntryCount = 24;
    static constexpr int kMaxValues = 400;
    static constexpr const char* kConfigFile = "shader/expression/expression.json";

    struct Expression {
        int code;
        qz::string name;
        bool state;
        float value;
        float extra;
    };

    ZuPersonExpressionExt();

    // Clears the person id and the standard pose and reads the defaults file.
    void init(ZuAppMain* app);

    // Takes one face update; analyses when the rate allows and sends events.
    void trackExpression(float* points, int floatCount, ZuRect* rect, float roll, float yaw, float pitch,
                         int personID, bool mirror);
    // Makes this face the neutral pose later faces are measured against.
    void saveStandardPt(float* points, int floatCount, ZuRect* rect, float roll, float yaw, float pitch);
    void resetStandarPt();

    // Analyses per second; below 0 or above 200 is ignored.
    void setDetectExtRate(int rate);
    int getDetectExtRate() const { return detectRate; }
    void setEnableSendEvnet(bool enable) { enableSendEvent = enable ? 1 : 0; }
    void setEnableDrawTestPt(bool enable) { enableTestPt = enable ? 1 : 0; }

    void _setLookUpAngle(float angle) { lookUpAngle = angle; }
    void _setLookDownAngle(float angle) { lookDownAngle = angle; }
    void _setLookLeftAngle(float angle) { lookLeftAngle = angle; }
    void _setLookRightAngle(float angle) { lookRightAngle = angle; }
    float _getLookUpAngle() const { return lookUpAngle; }
    float _getLookDownAngle() const { return lookDownAngle; }
    float _getLookLeftAngle() const { return lookLeftAngle; }
    float _getLookRightAngle() const { return lookRightAngle; }
    float _getMouthOpenAdjust() const { return mouthOpenAdjust; }
    // The other thresholds, as the defaults file sets them.
    float getEyeCloseAdjust() const { return eyeCloseAdjust; }
    float getPoutAdjust() const { return poutAdjust; }
    float getLipsAdjust() const { return lipsAdjust; }
    int getEnableSendEvent() const { return enableSendEvent; }
    int getEnableTestPt() const { return enableTestPt; }

    bool getLeftEyeOpenState() const { return entries[0].state; }
    bool getRightEyeOpenState() const { return entries[1].state; }
    bool getMouthOpenState() const { return entries[7].state; }
    bool getLeftMouthCornerRaiseState() const { return entries[11].state; }
    bool getRightMouthCornerRaiseState() const { return entries[12].state; }
    bool getLeftMouthCornerBowState() const { return entries[14].state; }
    bool getRightMouthCornerBowState() const { return entries[15].state; }
    bool getLeftTurnHeadState() const { return entries[17].state; }
    bool getRightTurnHeadState() const { return entries[18].state; }
    bool getRaiseHeadState() const { return entries[19].state; }
    bool getBowHeadState() const { return entries[20].state; }
    bool getTouthMouthState() const { return entries[21].state; }
    const Expression& getEntry(int index) const;
    bool getHasStandard() const { return hasStandard; }

    // Scene the events are sent for; the owning person sets it.
    void setSceneName(const char* name) { sceneName = name ? name : ""; }
    // The wall clock behind the rate limit; tests step their own.
    void setClock(ZuAppMain::Clock clock);

private:
    struct Point {
        float x, y;
    };

    void resetEntries();
    void loadConfig();
    // Rewrites the current landmarks into the saved pose's frame.
    void adaptToStandard();
    bool due();
    // False when the detector or the landmarks cannot give the points used.
    bool analyse();
    void sendEvents();
    void send(const char* name, int kind, float value, int extra = 0);
    void combine(int target, int first, int second, bool when);
    // Landmark of a standard index in a set of count floats; false outside it.
    bool pointAt(const float* set, int count, int standardIndex, Point* out) const;
    ZuDetectBase* detector() const;

    ZuAppMain* app = nullptr;
    ZuAppMain::Clock clock;
    double lastAnalysisMs = 0.0;
    bool firstAnalysis = true;
    float detectInterval = 1000.0f / 30.0f;
    int detectRate = 30;
    int personID = 0;
    bool hasStandard = false;
    ZuRect savedRect;
    float savedRoll = 0.0f, savedYaw = 0.0f, savedPitch = 0.0f;
    float eyeLeftRef = 0.0f, eyeRightRef = 0.0f, lipGapRef = 0.0f, mouthWidthRef = 0.0f;
    float lowerLipRef = 0.0f, upperLipRef = 0.0f, mouthAngleRef = 0.0f, lipAngleRef = 0.0f;
    ZuRect currentRect;
    float currentRoll = 0.0f, currentYaw = 0.0f, currentPitch = 0.0f;
    Expression entries[kEntryCount];
    float lookUpAngle = 20.0f, lookDownAngle = 20.0f, lookLeftAngle = 15.0f, lookRightAngle = 15.0f;
    float eyeCloseAdjust = 4 * 0.05f, mouthOpenAdjust = 5 * 0.1f;
    float poutAdjust = 0.5f + 2 * 0.1f, lipsAdjust = 0.5f + 5 * 0.1f;
    int enableTestPt = 0;
    int enableSendEvent = 1;
    float savedPoints[kMaxValues] = {};
    int savedCount = 0;
    float currentPoints[kMaxValues] = {};
    int currentCount = 0;
    float lipGap = 0.0f; // of the last analysis, sent with "mouthopen"
    qz::string sceneName;
};
