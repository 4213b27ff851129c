#pragma once

#include "event/ZuEvent.h"

// A scale factor from the host.
class ZuScaleEvent : public ZuEvent {
public:
    explicit ZuScaleEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_SCALE) {}

    int id = 0;
    float value = 0.0f;
};
