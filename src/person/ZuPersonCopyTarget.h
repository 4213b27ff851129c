#pragma once

#include "render/math/ZuVec2.h"

struct StanderFace;

// Reshapes a person's target face into the proportions of a standard face
// while it keeps following the live landmarks: each chain of landmarks
// (eye rims, brows, nose, lips, contour) is walked bone by bone, each bone
// turned a bounded step towards the standard face's direction but kept at
// its live length, so the face stays the user's and only its shape moves.
// Works on the AS layout; the buffers stay the person's.
class ZuPersonCopyTarget {
public:
    // How far one step follows the standard direction, and the largest
    // correction per step in pixels: the reshaped face cannot jump.
    static constexpr float kFollow = 0.7f;
    static constexpr float kMaxCorrection = 10.0f;

    // target: live landmarks as x, y pairs (targetPoints of them), changed in
    // place. standardTarget: room for standardCapacity points of the turned
    // standard face.
    ZuPersonCopyTarget(float* target, int targetPoints, float* standardTarget, int standardCapacity);

    // The whole reshape. roll: the live face's, in degrees; rectLeft and
    // rectRight: the live face rectangle.
    void apply(const StanderFace& face, float roll, float rectLeft, float rectRight);

    // B moved towards the direction C as seen from A, at most kMaxCorrection
    // x k away from where B was, and at B's old distance from A.
    static ZuVec2 _calcNextPoint_AS(const ZuVec2& A, const ZuVec2& B, const ZuVec2& C, float k);

private:
    // The standard face turned by the live roll around its nose bottom.
    void _modifyStandardPoint_AS(const StanderFace& face, float roll);
    void _ModifyPointByVec(const int* chain, int i);
    void _ModifyPoint(int index, int step);
    // Walks each chain bone by bone, all chains once per round.
    void modifyChains(const int* const* chains, const int* lengths, int chainCount, int rounds);
    // The nose wings widened to the standard face's proportion of the rectangle.
    void _modifyNose_as(const int* points, int count, const StanderFace& face, float rectLeft, float rectRight);
    // The nose made a little longer from the top of its bridge.
    void _modifyNoseHeight_as(const int* points, int count);
    // The brows moved together along the nose bridge, by a share of their
    // distance to the eye.
    void _modifyEyeBrow_as(int first, int last);

    bool hasTarget(int i) const { return i >= 0 && i < targetPoints; }
    bool hasStandard(int i) const { return i >= 0 && i < standardPoints; }
    ZuVec2 targetAt(int i) const { return ZuVec2(target[2 * i], target[2 * i + 1]); }
    ZuVec2 standardAt(int i) const { return ZuVec2(standardTarget[2 * i], standardTarget[2 * i + 1]); }
    void setTarget(int i, const ZuVec2& p);

    float* target;
    int targetPoints;
    float* standardTarget;
    int standardCapacity;
    int standardPoints = 0; // of the face in the latest apply
};
