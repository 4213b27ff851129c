#pragma once

#include "node/mask/Zu2DFaceMaskNode.h"

// The 2D face mask on the ST tracker (106 landmarks).
class Zu2DFaceMaskSTNode : public Zu2DFaceMaskNode {
public:
    explicit Zu2DFaceMaskSTNode(ZuAppMain* app) : Zu2DFaceMaskNode(app) { setType("Zu2DFaceMaskSTNode"); }

    int getFacePointNum() const override { return 106; }

protected:
    const char* meshName(FACEMASK2DTYPE type) const override;
    const char* faceName(FACEMASK2DTYPE type) const override;
    void extendPoints(float* points, int& count, bool full) const override;
};
