#pragma once

#include "event/ZuEvent.h"

// Five small-face strengths at once.
class ZuSlimStrengthEvent : public ZuEvent {
public:
    explicit ZuSlimStrengthEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_SLIM_STRENGTH) {}

    int id = 0;
    float v0 = 0.0f;
    float v1 = 0.0f;
    float v2 = 0.0f;
    float v3 = 0.0f;
    float v4 = 0.0f;
};
