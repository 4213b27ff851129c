#pragma once

#include "node/mask/Zu2DFaceOverlayNode.h"

// The person's own face, from the camera picture, over whatever lies beneath
// (stickers, masks): a "mask" item with "subType" "mask_show_self". Drawn on
// the simplified mesh (landmarks and forehead) in the overlay stream.
class Zu2DFaceRealNode : public Zu2DFaceOverlayNode {
public:
    explicit Zu2DFaceRealNode(ZuAppMain* app) : Zu2DFaceOverlayNode(app) { setType("Zu2DFaceRealNode"); }

protected:
    int innerMeshType() const override { return 1; }
    int stream() const override;
    int fillVertices(const Zu2DFaceMaskNode* inner, float w, float h, int angle, float* out) override;
};
