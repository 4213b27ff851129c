#pragma once

#include "node/mask/Zu2DChangeFaceNode.h"

// The change-face overlay under its AS name: the reshape is on the AS layout.
class Zu2DChangeFaceASNode : public Zu2DChangeFaceNode {
public:
    explicit Zu2DChangeFaceASNode(ZuAppMain* app) : Zu2DChangeFaceNode(app) { setType("Zu2DChangeFaceASNode"); }
};
