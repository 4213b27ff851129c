#pragma once

#include "event/ZuEvent.h"

// A combo stopped.
class ZuEventComboStop : public ZuEvent {
public:
    explicit ZuEventComboStop(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
