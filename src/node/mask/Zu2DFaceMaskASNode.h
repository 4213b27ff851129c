#pragma once

#include "node/mask/Zu2DFaceMaskNode.h"

// The 2D face mask on the AS tracker (101 landmarks).
class Zu2DFaceMaskASNode : public Zu2DFaceMaskNode {
public:
    explicit Zu2DFaceMaskASNode(ZuAppMain* app) : Zu2DFaceMaskNode(app) { setType("Zu2DFaceMaskASNode"); }

    int getFacePointNum() const override { return 101; }

protected:
    const char* meshName(FACEMASK2DTYPE type) const override;
    const char* faceName(FACEMASK2DTYPE type) const override;
    void extendPoints(float* points, int& count, bool full) const override;
};
