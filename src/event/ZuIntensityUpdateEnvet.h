#pragma once

#include "event/ZuEvent.h"

// A strength changed at run time.
class ZuIntensityUpdateEnvet : public ZuEvent {
public:
    explicit ZuIntensityUpdateEnvet(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_INTENSITY_UPDATE) {}

    int id = 0;
    float value = 0.0f;
};
