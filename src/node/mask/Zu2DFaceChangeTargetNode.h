#pragma once

#include "node/mask/Zu2DFaceOverlayNode.h"
#include "basesys/qzString.h"

// The camera face laid onto a stored target shape: the person's landmarks
// are reshaped towards a standard face ("standerface_as_hg01" unless set
// otherwise) and the face's camera pixels are drawn on the reshaped points.
// A "mask" item with "subType" "mask_change_face". The reshape works on the
// AS layout, so other back ends draw nothing (and say so once).
class Zu2DFaceChangeTargetNode : public Zu2DFaceOverlayNode {
public:
    explicit Zu2DFaceChangeTargetNode(ZuAppMain* app) : Zu2DFaceOverlayNode(app) {
        setType("Zu2DFaceChangeTargetNode");
    }

    void zudestroy() override;
    void update(float dt) override;
    void setTargetFace(const char* name) { targetFace = name ? name : ""; }

protected:
    int innerMeshType() const override { return 0; }
    int stream() const override;
    int fillVertices(const Zu2DFaceMaskNode* inner, float w, float h, int angle, float* out) override;

private:
    qz::string targetFace = "standerface_as_hg01";
    int copyPerson = 0; // the person whose copy target this node switched on
    bool warnedLayout = false;
};
