#pragma once

#include "event/ZuEvent.h"

// The scrolling speed changed.
class ZuEventFlappySpeedChange : public ZuEvent {
public:
    explicit ZuEventFlappySpeedChange(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    float speed = 0.0f;
};
