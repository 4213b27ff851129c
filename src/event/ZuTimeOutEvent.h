#pragma once

#include "event/ZuEvent.h"

// A package's time limit ran out.
class ZuTimeOutEvent : public ZuEvent {
public:
    explicit ZuTimeOutEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_TIMEOUT) {}

    int packageResUID = -1;
};
