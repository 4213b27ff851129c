#include "person/ZuPersonExpressionExt.h"

#include "basesys/ZuGBase.h"
#include "basesys/DataChunk.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPersonEvent.h"
#include "platform/ZuLog.h"

#include <rapidjson/document.h>

#include <sys/time.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>

namespace {

// The rules were tuned with pi taken as 3.14; the same factors keep their thresholds.
constexpr float kDegToRad = 0.017444444444444446f;
constexpr float kRadToDeg = 57.324840764331206f;

struct EntryStart {
    int code;
    const char* name;
    bool state;
};

const EntryStart kStart[ZuPersonExpressionExt::kEntryCount] = {
    {1, "lefteyeopen", true},
    {2, "righteyeopen", true},
    {1, "lefteyeopen", true}, // previous analysis
    {2, "righteyeopen", true}, // previous analysis
    {4, "lefteyeopen_righteyeclose", false},
    {3, "lefteyeclose_righteyeopen", false},
    {5, "lefteyeclose_righteyeclose", false},
    {6, "mouthopen", false},
    {7, "mouthclose", false},
    {8, "mouthopen_headturnleft", false},
    {9, "mouthopen_headturnright", false},
    {10, "leftraisemouthcorner", false},
    {11, "rightraisemouthcorner", false},
    {11, "raisemouthcorner", false},
    {13, "leftbowmouthcorner", false},
    {14, "rightbowmouthcorner", false},
    {15, "bowmouthcorner", false},
    {16, "headturnleft", false},
    {17, "headturnright", false},
    {18, "headraise", false},
    {19, "headbow", false},
    {20, "mouthtouth", false},
    {21, "mouthtouth_headturnleft", false},
    {22, "mouthtouth_headturnright", false},
};

// Table indices the rules refer to.
enum Entry {
    kLeftEye = 0, kRightEye = 1, kLeftEyeBefore = 2, kRightEyeBefore = 3,
    kLeftOpenRightClosed = 4, kLeftClosedRightOpen = 5, kBothClosed = 6,
    kMouthOpen = 7, kMouthClose = 8, kMouthOpenTurnLeft = 9, kMouthOpenTurnRight = 10,
    kLeftCornerRaise = 11, kRightCornerRaise = 12, kCornersRaise = 13,
    kTurnLeft = 17, kTurnRight = 18, kRaise = 19, kBow = 20,
    kPout = 21, kPoutTurnLeft = 22, kPoutTurnRight = 23,
};

ZuAppMain::WallTime systemClock() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return {static_cast<int64_t>(now.tv_sec), static_cast<int64_t>(now.tv_usec)};
}

struct Vec {
    float x, y;
};

float distance(Vec a, Vec b) { return std::hypot(b.x - a.x, b.y - a.y); }

// Angle at p between a and b in degrees; 0 when a side has no length.
float angleAt(Vec p, Vec a, Vec b) {
    const float ax = a.x - p.x, ay = a.y - p.y, bx = b.x - p.x, by = b.y - p.y;
    const float lengths = std::hypot(ax, ay) * std::hypot(bx, by);
    if (!(lengths > 0.0f)) return 0.0f;
    const float cosine = std::max(-1.0f, std::min(1.0f, (ax * bx + ay * by) / lengths));
    return std::acos(cosine) * kRadToDeg;
}

// A degenerate face (zero eye or mouth width) reads as ratio 0, never inf/NaN.
float ratio(float a, float b) { return b > 0.0f ? a / b : 0.0f; }

float toFloat(const rapidjson::Value& value) {
    const double v = value.GetDouble();
    return static_cast<float>(std::max(-static_cast<double>(FLT_MAX), std::min(static_cast<double>(FLT_MAX), v)));
}

bool readFloat(const rapidjson::Value& param, const char* key, float* out) {
    if (!param.HasMember(key) || !param[key].IsNumber()) return false;
    *out = toFloat(param[key]);
    return true;
}

bool readInt(const rapidjson::Value& param, const char* key, int* out) {
    if (!param.HasMember(key) || !param[key].IsInt()) return false;
    *out = param[key].GetInt();
    return true;
}

} // namespace

ZuPersonExpressionExt::ZuPersonExpressionExt() : clock(systemClock) { resetEntries(); }

void ZuPersonExpressionExt::resetEntries() {
    for (int i = 0; i < kEntryCount; ++i) {
        entries[i].code = kStart[i].code;
        entries[i].name = kStart[i].name;
        entries[i].state = kStart[i].state;
        entries[i].value = 1.0f;
        entries[i].extra = 0.0f;
    }
}

const ZuPersonExpressionExt::Expression& ZuPersonExpressionExt::getEntry(int index) const {
    return entries[std::max(0, std::min(kEntryCount - 1, index))];
}

void ZuPersonExpressionExt::setClock(ZuAppMain::Clock newClock) {
    clock = newClock ? std::move(newClock) : ZuAppMain::Clock(systemClock);
}

void ZuPersonExpressionExt::init(ZuAppMain* application) {
    app = application;
    personID = 0;
    hasStandard = false;
    loadConfig();
}

void ZuPersonExpressionExt::loadConfig() {
    // Built-in defaults first, so a file that sets only some keys leaves the rest.
    enableTestPt = 0;
    enableSendEvent = 1;
    setDetectExtRate(30);
    lookUpAngle = lookDownAngle = 20.0f;
    lookLeftAngle = lookRightAngle = 15.0f;
    mouthOpenAdjust = 5 * 0.1f;
    eyeCloseAdjust = 4 * 0.05f;
    poutAdjust = 0.5f + 2 * 0.1f;
    lipsAdjust = 0.5f + 5 * 0.1f;

    ZuFileMgr* files = ZuGBase::fileMgrOf(app);
    if (!files) return;
    DataChunk chunk;
    if (!files->loadFileContentStr(&chunk, kConfigFile) || !chunk.getBuffer()) {
        QZLOGD("expression: no \"%s\", built-in defaults kept", kConfigFile);
        return;
    }
    rapidjson::Document doc;
    doc.Parse(chunk.getBuffer());
    if (doc.HasParseError() || !doc.IsObject() || !doc.HasMember("param") || !doc["param"].IsObject()) {
        QZLOGW("expression: \"%s\" has no \"param\" object, built-in defaults kept", kConfigFile);
        return;
    }
    const rapidjson::Value& param = doc["param"];
    readInt(param, "enabletestpt", &enableTestPt);
    readInt(param, "enablesendevent", &enableSendEvent);
    int rate = 0;
    if (readInt(param, "detectrate", &rate)) setDetectExtRate(rate);
    readFloat(param, "look_up_angle", &lookUpAngle);
    readFloat(param, "look_down_angle", &lookDownAngle);
    readFloat(param, "look_left_angle", &lookLeftAngle);
    readFloat(param, "look_right_angle", &lookRightAngle);
    float value = 0.0f;
    if (readFloat(param, "open_mouse_adjust", &value)) mouthOpenAdjust = value * 0.1f;
    if (readFloat(param, "close_eye_adjust", &value)) eyeCloseAdjust = value * 0.05f;
    if (readFloat(param, "pout_adjust", &value)) poutAdjust = 0.5f + value * 0.1f;
    if (readFloat(param, "lips_adjust", &value)) lipsAdjust = 0.5f + value * 0.1f;
}

void ZuPersonExpressionExt::setDetectExtRate(int rate) {
    if (rate < 0 || rate > 200) {
        QZLOGW("expression: detect rate %d outside 0 to 200, ignored", rate);
        return;
    }
    detectRate = rate;
    // A rate of 0 means never again after the first analysis.
    detectInterval = rate > 0 ? 1000.0f / static_cast<float>(rate) : FLT_MAX;
}

ZuDetectBase* ZuPersonExpressionExt::detector() const {
    ZuDetectMgr* detects = ZuGBase::detectMgrOf(app);
    return detects ? detects->getDetect() : nullptr;
}

bool ZuPersonExpressionExt::pointAt(const float* set, int count, int standardIndex, Point* out) const {
    ZuDetectBase* detect = detector();
    if (!detect) return false;
    const int landmark = detect->transformIndex(standardIndex);
    if (landmark < 0 || landmark * 2 + 1 >= count) return false;
    out->x = set[landmark * 2];
    out->y = set[landmark * 2 + 1];
    return true;
}

void ZuPersonExpressionExt::trackExpression(float* points, int floatCount, ZuRect* rect, float roll, float yaw,
                                            float pitch, int id, bool mirror) {
    if (!points || floatCount <= 0) {
        QZLOGW("expression: no landmarks for person %d, update ignored", id);
        return;
    }
    personID = id;
    std::memset(currentPoints, 0, sizeof(currentPoints));
    currentCount = std::min(floatCount, kMaxValues);
    std::memcpy(currentPoints, points, sizeof(float) * static_cast<size_t>(currentCount));
    currentRect = rect ? *rect : ZuRect();
    currentRoll = mirror ? roll : -roll;
    currentYaw = mirror ? yaw : -yaw;
    currentPitch = pitch;

    if (hasStandard) adaptToStandard();
    if (!due()) return;
    if (analyse() && enableSendEvent != 0) sendEvents();
}

bool ZuPersonExpressionExt::due() {
    const ZuAppMain::WallTime time = clock();
    const double now = static_cast<double>(time.seconds) * 1000.0 + static_cast<double>(time.micros) * 0.001;
    if (firstAnalysis) {
        firstAnalysis = false;
    } else if (now - lastAnalysisMs < static_cast<double>(detectInterval)) {
        return false;
    }
    lastAnalysisMs = now;
    return true;
}

void ZuPersonExpressionExt::adaptToStandard() {
    Point c{}, s{};
    if (!pointAt(currentPoints, currentCount, 29, &c) || !pointAt(savedPoints, savedCount, 29, &s)) return;
    const float width = currentRect.right - currentRect.left;
    const float height = currentRect.top - currentRect.bottom;
    if (width == 0.0f || height == 0.0f) return; // no scale to take from an empty rectangle
    const float sx = (savedRect.right - savedRect.left) / width;
    const float sy = (savedRect.top - savedRect.bottom) / height;
    const float a = (savedRoll - currentRoll) * kDegToRad;
    const float cosA = std::cos(a), sinA = std::sin(a);
    for (int i = 0; i + 1 < currentCount; i += 2) {
        const float dx = (currentPoints[i] - c.x) * sx;
        const float dy = (currentPoints[i + 1] - c.y) * sy;
        currentPoints[i] = s.x + cosA * dx - sinA * dy;
        currentPoints[i + 1] = s.y + sinA * dx + cosA * dy;
    }
}

void ZuPersonExpressionExt::saveStandardPt(float* points, int floatCount, ZuRect* rect, float roll, float yaw,
                                           float pitch) {
    if (!points || floatCount <= 0) {
        QZLOGW("expression: no landmarks to save as the standard pose");
        return;
    }
    float copy[kMaxValues] = {};
    const int count = std::min(floatCount, kMaxValues);
    std::memcpy(copy, points, sizeof(float) * static_cast<size_t>(count));
    Point p[35] = {};
    for (int i : {11, 15, 20, 21, 22, 23, 24, 25, 29, 30, 34}) {
        if (!pointAt(copy, count, i, &p[i])) {
            QZLOGW("expression: landmarks lack standard point %d, standard pose not saved", i);
            return;
        }
    }
    hasStandard = true;
    std::memcpy(savedPoints, copy, sizeof(savedPoints));
    savedCount = count;
    savedRect = rect ? *rect : ZuRect();
    savedRoll = roll;
    savedYaw = yaw;
    savedPitch = pitch;
    auto v = [&](int i) { return Vec{p[i].x, p[i].y}; };
    eyeLeftRef = distance(v(15), v(11));
    eyeRightRef = distance(v(34), v(30));
    lipGapRef = distance(v(24), v(22));
    mouthWidthRef = distance(v(20), v(23));
    lowerLipRef = distance(v(25), v(24));
    upperLipRef = distance(v(21), v(22));
    mouthAngleRef = angleAt(v(25), v(20), v(23));
    lipAngleRef = angleAt(v(21), v(20), v(23));
}

void ZuPersonExpressionExt::resetStandarPt() {
    hasStandard = false;
    std::memset(savedPoints, 0, sizeof(savedPoints));
    savedCount = 0;
    savedRect = ZuRect();
    savedRoll = savedYaw = savedPitch = 0.0f;
    firstAnalysis = false;
}

bool ZuPersonExpressionExt::analyse() {
    Point p[35] = {};
    for (int i : {11, 12, 14, 15, 20, 21, 22, 23, 24, 25, 30, 31, 33, 34}) {
        if (!pointAt(currentPoints, currentCount, i, &p[i])) {
            QZLOGW("expression: person %d lacks standard point %d (no detector or too few landmarks)", personID, i);
            return false;
        }
    }
    auto v = [&](int i) { return Vec{p[i].x, p[i].y}; };
    const float eyeLeftH = distance(v(15), v(11)), eyeLeftW = distance(v(12), v(14));
    const float eyeRightH = distance(v(34), v(30)), eyeRightW = distance(v(31), v(33));
    lipGap = distance(v(24), v(22));
    const float upperLip = distance(v(21), v(22));
    const float mouthW = distance(v(20), v(23));
    const float angleAtLip25 = angleAt(v(25), v(20), v(23));
    const float angleLeft = angleAt(v(25), v(20), v(24));
    const float angleRight = angleAt(v(25), v(23), v(24));
    const float angleAtLip21 = angleAt(v(21), v(20), v(23));

    if (!hasStandard) {
        eyeLeftRef = std::max(0.35f * eyeLeftW, 24.0f);
        eyeRightRef = std::max(0.35f * eyeRightW, 24.0f);
        mouthAngleRef = 155.0f;
        lipAngleRef = 130.0f;
    }
    mouthWidthRef = mouthW;
    entries[kLeftEyeBefore].state = entries[kLeftEye].state;
    entries[kLeftEyeBefore].value = entries[kLeftEye].value;
    entries[kRightEyeBefore].state = entries[kRightEye].state;
    entries[kRightEyeBefore].value = entries[kRightEye].value;

    auto judgeEye = [&](Expression& eye, float height, float width, float reference) {
        const float limit = std::min(width * eyeCloseAdjust, 24.0f);
        const float openness = ratio(height, 0.5f * width);
        // Strict: a lid gap of exactly reference - limit still counts as open.
        if (reference - height > limit) {
            eye.state = false;
            eye.value = std::min(std::fabs(1.0f - openness), 1.0f);
        } else {
            eye.state = true;
            eye.value = std::min(std::fabs(openness), 1.0f);
        }
    };
    judgeEye(entries[kLeftEye], eyeLeftH, eyeLeftW, eyeLeftRef);
    judgeEye(entries[kRightEye], eyeRightH, eyeRightW, eyeRightRef);

    Expression& open = entries[kMouthOpen];
    if (lipGap - mouthWidthRef * mouthOpenAdjust > 0.0f) {
        open.state = true;
        open.value = std::min(std::fabs(ratio(lipGap, mouthWidthRef)), 1.0f);
        open.extra = lipGap;
    } else {
        open.state = false;
        open.value = 1.0f;
    }
    entries[kMouthClose].value = 1.0f;
    entries[kMouthClose].state = !open.state && lipGap - 0.5f * mouthWidthRef * mouthOpenAdjust < 0.0f;

    // Looking down shortens the lips' curve on screen; the threshold follows the pitch.
    float threshold;
    if (currentPitch > -15.0f && currentPitch < -5.0f)
        threshold = 0.0f;
    else if (currentPitch <= -15.0f)
        threshold = 20.0f * std::sin(-currentPitch * kDegToRad);
    else
        threshold = 100.0f * std::sin(-currentPitch * kDegToRad);
    auto judgeCorner = [&](Expression& corner, float angle) {
        const float a = angle - 90.0f * lipsAdjust;
        corner.state = a > threshold;
        corner.value = corner.state ? std::min(std::fabs(a / 10.0f), 1.0f) : 1.0f;
    };
    judgeCorner(entries[kLeftCornerRaise], angleLeft);
    judgeCorner(entries[kRightCornerRaise], angleRight);

    for (int e : {kTurnLeft, kTurnRight, kRaise, kBow}) {
        entries[e].state = false;
        entries[e].value = 1.0f;
    }
    const float turn = std::fabs(currentYaw);
    if (turn > lookLeftAngle && currentYaw < 0.0f) {
        entries[kTurnLeft].state = true;
        entries[kTurnLeft].value = std::min(turn / 45.0f, 1.0f);
    } else if (turn > lookRightAngle && currentYaw > 0.0f) {
        entries[kTurnRight].state = true;
        entries[kTurnRight].value = std::min(turn / 45.0f, 1.0f);
    }
    const float nod = std::fabs(currentPitch);
    const int nodEntry = nod > lookUpAngle && currentPitch > 0.0f    ? kRaise
                         : nod > lookDownAngle && currentPitch < 0.0f ? kBow
                                                                      : -1;
    if (nodEntry >= 0) {
        entries[nodEntry].state = true;
        entries[nodEntry].value = std::min(nod / 45.0f, 1.0f);
        entries[nodEntry].extra = currentPitch;
    }

    // A pout narrows both mouth angles below their neutral size, which a turned
    // head shrinks on screen as well.
    Expression& pout = entries[kPout];
    pout.state = false;
    pout.value = 1.0f;
    const float f = std::sqrt(std::max(0.0f, 1.0f - std::sin(std::fabs(currentYaw) * kDegToRad)));
    const float limit1 = 2.0f * kRadToDeg * std::atan(std::tan(0.5f * mouthAngleRef * kDegToRad) * f);
    const float limit2 = 2.0f * kRadToDeg * std::atan(std::tan(0.5f * lipAngleRef * kDegToRad) * f);
    if (!open.state && lipGap - upperLip < 0.0f && limit2 - angleAtLip21 > 10.0f * poutAdjust &&
        limit1 - angleAtLip25 > 10.0f * poutAdjust) {
        pout.state = true;
        pout.value = 0.5f * (std::min((1.0f - std::fabs(ratio(angleAtLip21, limit2))) * 3.3f, 1.0f) +
                             std::min((1.0f - std::fabs(ratio(angleAtLip25, limit1))) * 3.3f, 1.0f));
    }

    const bool left = entries[kLeftEye].state, right = entries[kRightEye].state;
    combine(kLeftOpenRightClosed, kLeftEye, kRightEye, left && !right);
    combine(kLeftClosedRightOpen, kLeftEye, kRightEye, !left && right);
    combine(kBothClosed, kLeftEye, kRightEye, !left && !right);
    combine(kMouthOpenTurnLeft, kMouthOpen, kTurnLeft, open.state && entries[kTurnLeft].state);
    combine(kMouthOpenTurnRight, kMouthOpen, kTurnRight, open.state && entries[kTurnRight].state);
    combine(kCornersRaise, kLeftCornerRaise, kRightCornerRaise,
            entries[kLeftCornerRaise].state && entries[kRightCornerRaise].state);
    combine(kPoutTurnLeft, kPout, kTurnLeft, pout.state && entries[kTurnLeft].state);
    combine(kPoutTurnRight, kPout, kTurnRight, pout.state && entries[kTurnRight].state);
    return true;
}

void ZuPersonExpressionExt::combine(int target, int first, int second, bool when) {
    entries[target].state = when;
    entries[target].value = when ? 0.5f * (entries[first].value + entries[second].value) : 1.0f;
}

void ZuPersonExpressionExt::send(const char* name, int kind, float value, int extra) {
    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (!events) return;
    ZuPersonEvent* event = new ZuPersonEvent(sceneName.c_str(), kind);
    event->name = name;
    event->personID = personID;
    event->value = value;
    event->extra = extra;
    if (!events->pushEvent(event)) event->release();
}

void ZuPersonExpressionExt::sendEvents() {
    const Expression* e = entries;
    if (e[kLeftEye].state)
        send("lefteyeopen", 9, e[kLeftEye].value);
    else
        send("lefteyeclose", 11, e[kLeftEye].value);
    if (e[kRightEye].state)
        send("righteyeopen", 12, e[kRightEye].value);
    else
        send("righteyeclose", 14, e[kRightEye].value);
    if (e[kLeftEye].state != e[kLeftEyeBefore].state)
        send("eyeblink", 10, 0.5f * (e[kLeftEye].value + e[kLeftEyeBefore].value));
    if (e[kRightEye].state != e[kRightEyeBefore].state)
        send("eyeblink", 13, 0.5f * (e[kRightEye].value + e[kRightEyeBefore].value));
    if (e[kMouthOpen].state) send("mouthopen", 17, e[kMouthOpen].value, static_cast<int>(lipGap));
    if (e[kMouthClose].state) send("mouthclose", 18, e[kMouthClose].value);
    if (e[kCornersRaise].state) send("raisemouthcorner", 20, e[kCornersRaise].value);
    if (e[kTurnLeft].state)
        send("headturnleft", 23, e[kTurnLeft].value);
    else if (e[kTurnRight].state)
        send("headturnright", 24, e[kTurnRight].value);
    else
        send("headnoneturn", 25, 1.0f);
    if (e[kRaise].state)
        send("headraise", 26, e[kRaise].value, static_cast<int>(currentPitch));
    else if (e[kBow].state)
        send("headbow", 27, e[kBow].value, static_cast<int>(currentPitch));
    else
        send("headnoneraisebow", 28, 1.0f);
    if (e[kPout].state) send("mouthtouth", 19, e[kPout].value);
    if (e[kLeftOpenRightClosed].state) send("lefteyeopen_righteyeclose", 31, e[kLeftOpenRightClosed].value);
    if (e[kLeftClosedRightOpen].state) send("lefteyeclose_righteyeopen", 32, e[kLeftClosedRightOpen].value);
    if (e[kBothClosed].state) send("lefteyeclose_righteyeclose", 33, e[kBothClosed].value);
    if (e[kMouthOpenTurnLeft].state) send("mouthopen_headturnleft", 29, e[kMouthOpenTurnLeft].value);
    if (e[kMouthOpenTurnRight].state) send("mouthopen_headturnright", 30, e[kMouthOpenTurnRight].value);
    if (e[kPoutTurnLeft].state) send("mouthtouth_headturnleft", 34, e[kPoutTurnLeft].value);
    if (e[kPoutTurnRight].state) send("mouthtouth_headturnright", 35, e[kPoutTurnRight].value);
}
