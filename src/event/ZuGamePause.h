#pragma once

#include "event/ZuEvent.h"

// A game paused.
class ZuGamePause : public ZuEvent {
public:
    explicit ZuGamePause(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
