#pragma once

#include "person/ZuPersonAnimojiBase.h"

// The tracker of the FP landmark set. It compares 29 key landmarks of the
// live face, scaled to a face 500 wide, with the neutral face of the table
// for the same head pose; the differences become the raw measures.
class ZuPersonAnimoji_FP : public ZuPersonAnimojiBase {
public:
    static constexpr int kKeyCount = 29;
    static constexpr int kPointCount = 106;
    // The landmark behind each key point a0..a28.
    static const int kKeyLandmarks[kKeyCount];

    explicit ZuPersonAnimoji_FP(ZuAppMain* app) : ZuPersonAnimojiBase(app) {}

    // Points are the manager's 106 working points.
    void detect(ZuPoint* points, float motion, float roll, float yaw, float pitch) override;

    const ZuPoint* getKeyPoints() const { return a; }
    const ZuPoint* getReferencePoints() const { return b; }

private:
    void _getHeadMovement();
    // False for a face without width, which has no scale.
    bool _normalizePoints();
    void _getBlink();
    void _getMouthShape();
    void _getEyeBall();
    void _getBrow();
    void _getSniff(const ZuPoint* points, float motion);
    void _getMouthUpDown();
    void _getMouthRoll();
    void _getCheekPuff();

    ZuPoint a[kKeyCount];
    ZuPoint b[kKeyCount];
    ZuPoint lastHeadPoint;
    float lastFrameMark = 0.0f;
};
