#pragma once

#include "node/mask/Zu2DFaceChangeTargetNode.h"

// A change-face overlay made by its type name, for hosts that pick the target
// face themselves (setTargetFace); it starts on the "hg01" face.
class Zu2DChangeFaceNode : public Zu2DFaceChangeTargetNode {
public:
    explicit Zu2DChangeFaceNode(ZuAppMain* app) : Zu2DFaceChangeTargetNode(app) { setType("Zu2DChangeFaceNode"); }
};
