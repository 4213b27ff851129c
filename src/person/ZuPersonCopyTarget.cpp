#include "person/ZuPersonCopyTarget.h"

#include "data/StanderFace.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr float kDegToRad = 0.017453292f;
constexpr int kNoseBottom = 99;  // the standard face turns around it
constexpr int kBridgeTop = 97;   // nose height and brow shift are measured from it
constexpr int kBridgeLow = 98;
constexpr float kNoseWidthScale = 1.25f;
constexpr float kNoseLengthScale = 1.05f;
constexpr float kBrowShift = 0.2f;
constexpr int kBrowMeasure[2] = {26, 42}; // brow to eye top: the shift scales with it

float length(const ZuVec2& v) { return std::sqrt(v.x * v.x + v.y * v.y); }
ZuVec2 sub(const ZuVec2& a, const ZuVec2& b) { return ZuVec2(a.x - b.x, a.y - b.y); }
ZuVec2 add(const ZuVec2& a, const ZuVec2& b) { return ZuVec2(a.x + b.x, a.y + b.y); }
ZuVec2 scale(const ZuVec2& v, float s) { return ZuVec2(v.x * s, v.y * s); }
// A zero vector stays zero rather than becoming NaN.
ZuVec2 normalize(const ZuVec2& v) {
    const float len = length(v);
    return len > 0.0f ? scale(v, 1.0f / len) : ZuVec2();
}

// The chains start at a point that stays and run to the one that moves last.
const int kEyes[][4] = {{42, 41, 40, 39}, {42, 43, 44, 45}, {48, 49, 50, 39}, {48, 47, 46, 45},
                        {54, 53, 52, 51}, {54, 55, 56, 57}, {60, 61, 62, 51}, {60, 59, 58, 57}};
const int kBrowsInner[][3] = {{21, 20, 19}, {27, 28, 19}, {32, 33, 34}, {36, 35, 34}};
const int kBrowsOuter[][4] = {{21, 22, 23, 24}, {27, 26, 25, 24}, {32, 31, 30, 29}, {36, 37, 38, 29}};
const int kNose[][4] = {{66, 65, 64, 63}, {66, 67, 68, 100}, {71, 72, 73, 74}, {71, 70, 69, 100}};
const int kLips[][4] = {{75, 76, 77, 78}, {81, 80, 79, 78}, {75, 86, 85, 84}, {81, 82, 83, 84}};
const int kContour[][10] = {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {18, 17, 16, 15, 14, 13, 12, 11, 10, 9}};
const int kNoseWings[] = {65, 72};
const int kNoseLength[] = {98, 99, 100, 68, 69};
constexpr int kBrowFirst = 19, kBrowLast = 38;

template <size_t N, size_t L> void pointersOf(const int (&chains)[N][L], const int* out[N], int lengths[N]) {
    for (size_t c = 0; c < N; ++c) {
        out[c] = chains[c];
        lengths[c] = static_cast<int>(L);
    }
}

} // namespace

ZuPersonCopyTarget::ZuPersonCopyTarget(float* target, int targetPoints, float* standardTarget, int standardCapacity)
    : target(target), targetPoints(targetPoints), standardTarget(standardTarget), standardCapacity(standardCapacity) {}

void ZuPersonCopyTarget::setTarget(int i, const ZuVec2& p) {
    target[2 * i] = p.x;
    target[2 * i + 1] = p.y;
}

ZuVec2 ZuPersonCopyTarget::_calcNextPoint_AS(const ZuVec2& A, const ZuVec2& B, const ZuVec2& C, float k) {
    const ZuVec2 bone = sub(B, A);
    const float len = length(bone);
    ZuVec2 D = sub(scale(normalize(C), len), bone);
    const float correction = length(D);
    if (correction > kMaxCorrection) D = scale(D, kMaxCorrection / correction);
    const ZuVec2 P = add(B, scale(D, k));
    const ZuVec2 towards = sub(P, A);
    // P on A itself gives no direction: the bone keeps its own.
    if (length(towards) <= 0.0f) return B;
    return add(A, scale(normalize(towards), len));
}

void ZuPersonCopyTarget::apply(const StanderFace& face, float roll, float rectLeft, float rectRight) {
    _modifyStandardPoint_AS(face, roll);

    const int* chains[8];
    int lengths[8];
    pointersOf(kEyes, chains, lengths);
    modifyChains(chains, lengths, 8, 3);
    pointersOf(kBrowsInner, chains, lengths);
    modifyChains(chains, lengths, 4, 2);
    pointersOf(kBrowsOuter, chains, lengths);
    modifyChains(chains, lengths, 4, 3);

    _modifyNose_as(kNoseWings, 2, face, rectLeft, rectRight);
    _modifyNoseHeight_as(kNoseLength, 5);
    pointersOf(kNose, chains, lengths);
    modifyChains(chains, lengths, 4, 3);

    pointersOf(kLips, chains, lengths);
    modifyChains(chains, lengths, 4, 3);
    pointersOf(kContour, chains, lengths);
    modifyChains(chains, lengths, 2, 9);

    _modifyEyeBrow_as(kBrowFirst, kBrowLast);
}

void ZuPersonCopyTarget::_modifyStandardPoint_AS(const StanderFace& face, float roll) {
    standardPoints = std::max(0, std::min({face.facepoints_count, StanderFace::kMaxValues / 2, standardCapacity}));
    const float a = roll * kDegToRad - face.face_roll * kDegToRad;
    const float c = std::cos(a), s = std::sin(a);
    // A face without the pivot point is taken as it stands.
    float cx = 0.0f, cy = 0.0f;
    const bool turn = kNoseBottom < standardPoints;
    if (turn) {
        cx = static_cast<float>(static_cast<int>(face.data[2 * kNoseBottom]));
        cy = static_cast<float>(static_cast<int>(face.data[2 * kNoseBottom + 1]));
    }
    for (int i = 0; i < standardPoints; ++i) {
        const float x = face.data[2 * i], y = face.data[2 * i + 1];
        if (!turn) {
            standardTarget[2 * i] = x;
            standardTarget[2 * i + 1] = y;
            continue;
        }
        const float dx = x - cx, dy = y - cy;
        standardTarget[2 * i] = cx + dx * c - dy * s;
        standardTarget[2 * i + 1] = cy + dx * s + dy * c;
    }
}

void ZuPersonCopyTarget::modifyChains(const int* const* chains, const int* lengths, int chainCount, int rounds) {
    for (int round = 0; round < rounds; ++round)
        for (int c = 0; c < chainCount; ++c)
            for (int i = 0; i + 1 < lengths[c]; ++i) _ModifyPointByVec(chains[c], i);
}

void ZuPersonCopyTarget::_ModifyPointByVec(const int* chain, int i) { _ModifyPoint(chain[i], chain[i + 1] - chain[i]); }

void ZuPersonCopyTarget::_ModifyPoint(int index, int step) {
    const int next = index + step;
    if (!hasTarget(index) || !hasTarget(next)) return;
    // A standard face without these points has no direction to give.
    if (!hasStandard(index) || !hasStandard(next)) return;
    const ZuVec2 C = sub(standardAt(next), standardAt(index));
    setTarget(next, _calcNextPoint_AS(targetAt(index), targetAt(next), C, kFollow));
}

void ZuPersonCopyTarget::_modifyNose_as(const int* points, int count, const StanderFace& face, float rectLeft,
                                        float rectRight) {
    const float standardWidth = static_cast<float>(std::abs(face.face_right - face.face_left));
    if (standardWidth <= 0.0f || !hasStandard(kNoseBottom) || !hasTarget(kNoseBottom)) return;
    const ZuVec2 centre = targetAt(kNoseBottom);
    for (int k = 0; k < count; ++k) {
        const int i = points[k];
        if (!hasStandard(i) || !hasTarget(i)) continue;
        const ZuVec2 w = sub(standardAt(i), standardAt(kNoseBottom));
        const float rx = std::fabs(w.x) / standardWidth;
        const ZuVec2 v = sub(targetAt(i), centre);
        const float len = length(ZuVec2(kNoseWidthScale * rx * (rectRight - rectLeft), v.y));
        setTarget(i, add(centre, scale(normalize(w), len)));
    }
}

void ZuPersonCopyTarget::_modifyNoseHeight_as(const int* points, int count) {
    if (!hasTarget(kBridgeTop)) return;
    const ZuVec2 anchor = targetAt(kBridgeTop);
    for (int k = 0; k < count; ++k) {
        const int i = points[k];
        if (!hasTarget(i)) continue;
        setTarget(i, add(anchor, scale(sub(targetAt(i), anchor), kNoseLengthScale)));
    }
}

void ZuPersonCopyTarget::_modifyEyeBrow_as(int first, int last) {
    if (!hasTarget(kBridgeTop) || !hasTarget(kBridgeLow) || !hasTarget(kBrowMeasure[0]) ||
        !hasTarget(kBrowMeasure[1]))
        return;
    const ZuVec2 along = normalize(sub(targetAt(kBridgeLow), targetAt(kBridgeTop)));
    const float distance = kBrowShift * length(sub(targetAt(kBrowMeasure[0]), targetAt(kBrowMeasure[1])));
    const ZuVec2 shift = scale(along, distance);
    for (int i = std::max(first, 0); i <= last && hasTarget(i); ++i) setTarget(i, add(targetAt(i), shift));
}
