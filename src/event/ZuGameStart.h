#pragma once

#include "event/ZuEvent.h"

// A game started.
class ZuGameStart : public ZuEvent {
public:
    explicit ZuGameStart(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
