#pragma once

#include "event/ZuEvent.h"

// Time left in a game.
class ZuEventGameTime : public ZuEvent {
public:
    explicit ZuEventGameTime(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int time = 0;
};
