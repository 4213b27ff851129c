#pragma once

#include "node/mask/Zu2DFaceMaskNode.h"

// The 2D face mask on our own tracker (its first 68 points; the pupils take no part).
class Zu2DFaceMaskZUNode : public Zu2DFaceMaskNode {
public:
    explicit Zu2DFaceMaskZUNode(ZuAppMain* app) : Zu2DFaceMaskNode(app) { setType("Zu2DFaceMaskZUNode"); }

    int getFacePointNum() const override { return 68; }

protected:
    const char* meshName(FACEMASK2DTYPE type) const override;
    const char* faceName(FACEMASK2DTYPE type) const override;
    void extendPoints(float* points, int& count, bool full) const override;
};
