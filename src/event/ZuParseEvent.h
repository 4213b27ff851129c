#pragma once

#include "event/ZuEvent.h"

// A package finished parsing on the load thread.
class ZuParseEvent : public ZuEvent {
public:
    explicit ZuParseEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PARSE) {}

    bool success = false;
    int parsedResUID = -1;
};
