#pragma once

#include "event/ZuEvent.h"

// A location from the host; resUID holds the host's id.
class ZuActionLocation : public ZuEvent {
public:
    explicit ZuActionLocation(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_ACTION_LOCATION) {}

    qz::string text;
    float x = 0.0f;
    float y = 0.0f;
};
