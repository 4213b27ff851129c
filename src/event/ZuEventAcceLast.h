#pragma once

#include "event/ZuEvent.h"

// The acceleration rate.
class ZuEventAcceLast : public ZuEvent {
public:
    explicit ZuEventAcceLast(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    float rate = 0.0f;
};
