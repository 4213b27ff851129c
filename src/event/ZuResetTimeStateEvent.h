#pragma once

#include "event/ZuEvent.h"

// Puts a timed animation back into a state.
class ZuResetTimeStateEvent : public ZuEvent {
public:
    explicit ZuResetTimeStateEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_RESET_TIME_STATE) {}

    qz::string animationName;
    int resourceId = 0;
    int state = 0;
};
