#pragma once

#include "event/ZuEvent.h"

// A game is about to start.
class ZuGamePreStart : public ZuEvent {
public:
    explicit ZuGamePreStart(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
