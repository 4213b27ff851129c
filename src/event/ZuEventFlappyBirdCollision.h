#pragma once

#include "event/ZuEvent.h"

// The bird hit something.
class ZuEventFlappyBirdCollision : public ZuEvent {
public:
    explicit ZuEventFlappyBirdCollision(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int kind = 0;
};
