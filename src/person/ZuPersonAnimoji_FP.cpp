#include "person/ZuPersonAnimoji_FP.h"

#include "person/ZuPosData.h"
#include "platform/ZuLog.h"

#include <cmath>
#include <cstdlib>

const int ZuPersonAnimoji_FP::kKeyLandmarks[kKeyCount] = {0,  16, 32, 33, 37, 38, 42, 43, 49, 52,
                                                          55, 58, 61, 72, 73, 75, 76, 84, 86, 87,
                                                          88, 90, 92, 93, 94, 98, 102, 104, 105};

namespace {

float d(const ZuPoint& p, const ZuPoint& q) { return ZuPoint::vector2Distance(p, q); }

// A ratio of two distances; a zero below means no lean either way.
float ratio(float over, float under) { return under > 0.0f ? over / under : 1.0f; }

// The table is keyed from -60 up; poses far outside all give the lowest key,
// and a cast of a huge float would be undefined.
int poseKey(float degrees) {
    if (degrees < -1000.0f) degrees = -1000.0f;
    if (degrees > 1000.0f) degrees = 1000.0f;
    return static_cast<int>(degrees) + 60;
}

// |int(v)|, cut towards zero as a cast does; a wild value is held inside
// the range of int first so the cast stays defined.
float absTruncated(float v) {
    if (v > 1e6f) v = 1e6f;
    if (v < -1e6f) v = -1e6f;
    return static_cast<float>(std::abs(static_cast<int>(v)));
}

} // namespace

void ZuPersonAnimoji_FP::detect(ZuPoint* points, float motion, float roll, float yaw, float pitch) {
    if (!posData || !points) return;
    for (int k = 0; k < kKeyCount; ++k) a[k] = points[kKeyLandmarks[k]];
    // The same detection handed on twice would double-count every change.
    if (a[7].x == lastFrameMark) return;
    _getHeadMovement();
    if (headKeepMoving) {
        // A still head keeps its reference, so that a slowly changing pose does
        // not swing the reference while the face is held.
        if (const int* row = posData->getPos(poseKey(yaw), poseKey(pitch))) {
            for (int k = 0; k < kKeyCount; ++k) {
                b[k].x = static_cast<float>(row[k * 2]);
                b[k].y = static_cast<float>(row[k * 2 + 1]);
            }
        }
    }
    if (!_normalizePoints()) {
        QZLOGW("animoji: face has no width (contour ends meet), frame not measured");
        return;
    }
    _getBlink();
    _getMouthShape();
    _getEyeBall();
    _getBrow();
    _getSniff(points, motion);
    _getMouthUpDown();
    _getMouthRoll();
    _getCheekPuff();
    update();
    lastFrameMark = points[kKeyLandmarks[7]].x;
}

void ZuPersonAnimoji_FP::_getHeadMovement() {
    // In detection pixels, before scaling: a jump of the nose root means the
    // head moved and the pose reference must follow.
    headKeepMoving = d(a[7], lastHeadPoint) > 20.0f;
    lastHeadPoint = a[7];
}

bool ZuPersonAnimoji_FP::_normalizePoints() {
    const float s = d(a[0], a[2]) / 500.0f;
    if (!(s > 0.0f)) return false;
    for (ZuPoint& p : a) {
        p.x /= s;
        p.y /= s;
    }
    return true;
}

void ZuPersonAnimoji_FP::_getBlink() {
    m.blinkR = (30.0f - d(a[15], a[16])) * 5.0f;
    m.blinkL = (30.0f - d(a[13], a[14])) * 5.0f;
    if (m.blinkR < 0.0f) m.wideR = (-m.blinkR - 30.0f) * 3.0f;
    if (m.blinkL < 0.0f) m.wideL = (-m.blinkL - 30.0f) * 3.0f;
    m.eyesWide = (m.wideR + m.wideL) * 0.5f;
    // A wink: the eye that closes clearly more than the other closes fully.
    if (m.blinkR > m.blinkL + 10.0f)
        m.blinkR *= 2.0f;
    else if (m.blinkL > m.blinkR + 10.0f)
        m.blinkL *= 2.0f;
    if (m.blinkR != m.lastBlinkR) {
        m.changeR = absTruncated(m.blinkR - m.lastBlinkR);
        m.lastBlinkR = m.blinkR;
    }
    if (m.blinkL != m.lastBlinkL) {
        m.changeL = absTruncated(m.blinkL - m.lastBlinkL);
        m.lastBlinkL = m.blinkL;
    }
    // Both eyes changing fast is a blink: they close together.
    if (m.changeR > 10.0f && m.changeL > 10.0f) m.blinkR = m.blinkL;
    // One eye open, the other half way: the half way is noise.
    if (m.blinkR < 10.0f && m.blinkL > 10.0f && m.blinkL < 50.0f) m.blinkL = m.blinkR;
    if (m.blinkL < 10.0f && m.blinkR > 10.0f && m.blinkR < 50.0f) m.blinkR = m.blinkL;
}

void ZuPersonAnimoji_FP::_getMouthShape() {
    m.mouthOpen = d(a[25], a[26]) - 5.0f;
    m.shrinkMouth = 2.0f * (d(b[17], b[21]) - d(a[17], a[21]));
    m.smileL = 2.0f * (d(b[17], b[9]) - d(a[17], a[9]));
    m.smileR = 2.0f * (d(b[21], b[12]) - d(a[21], a[12]));
    m.grinUp = 2.0f * (d(b[8], b[19]) - d(a[8], a[19]) - 1.0f);
    m.grinDown = 2.0f * (d(a[24], a[22]) - d(b[24], b[22]) - 1.0f) - 10.0f;
    // A smile lifts the upper lip too; that is not a grin.
    if (m.smileR > 0.0f && m.smileL > 0.0f) m.grinUp -= (m.smileR + m.smileL) * 0.2f;
}

void ZuPersonAnimoji_FP::_getEyeBall() {
    // A distance ratio above 1 looks one way, below 1 the other; both are
    // scaled so that a ratio of 1.5 (or 1/1.5) gives 100.
    auto split = [](float ratio, float& above, float& below) {
        above = ratio > 1.0f ? 200.0f * ratio - 200.0f : 0.0f;
        below = ratio > 1.0f ? 0.0f : (ratio > 0.0f ? 200.0f / ratio - 200.0f : 100.0f);
    };
    split(ratio(d(a[11], a[28]), d(a[12], a[28])), m.eyesRight, m.eyesLeft);
    split(ratio(d(a[15], a[28]), d(a[16], a[28])), m.eyesUp, m.eyesDown);
}

void ZuPersonAnimoji_FP::_getBrow() {
    m.browR = (d(a[5], a[7]) - d(b[5], b[7])) * 5.0f;
    m.browL = (d(a[4], a[7]) - d(b[4], b[7])) * 5.0f;
    // Frowning moves the brows little: lowered brows count four times.
    if (m.browR < -5.0f) m.browR *= 4.0f;
    if (m.browL < -5.0f) m.browL *= 4.0f;
}

void ZuPersonAnimoji_FP::_getSniff(const ZuPoint* points, float motion) {
    const float nose = d(points[82], points[83]);
    // While the whole face moves the wings move with it: no sniff then.
    m.sniff = motion < 100.0f ? (nose - m.nose) * 100.0f : 0.0f;
    m.nose = nose;
}

void ZuPersonAnimoji_FP::_getMouthUpDown() {
    m.nuZui = (d(b[26], b[7]) - d(a[26], a[7])) * 4.0f;
    m.xiaNuZui = (d(a[25], a[7]) - d(b[25], b[7])) * 2.0f;
    // A pushed-up lower lip moves the lip lines too: no grin then.
    if (m.nuZui > 10.0f) {
        m.grinUp = 0.0f;
        m.grinDown = 0.0f;
    }
}

void ZuPersonAnimoji_FP::_getMouthRoll() {
    m.rollUpper = (80.0f - 4.0f * d(a[25], a[19])) * 3.0f;
    m.rollLower = (80.0f - 4.0f * d(a[23], a[26])) * 3.0f;
}

void ZuPersonAnimoji_FP::_getCheekPuff() {
    // The landmarks give no measure of the cheeks.
    m.cheekPuffR = 0.0f;
    m.cheekPuffL = 0.0f;
}
