#pragma once

#include "event/ZuEvent.h"

// A game changed phase.
class ZuEventGameChange : public ZuEvent {
public:
    explicit ZuEventGameChange(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int a = 0;
    int b = 0;
};
