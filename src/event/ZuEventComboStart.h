#pragma once

#include "event/ZuEvent.h"

// A combo started.
class ZuEventComboStart : public ZuEvent {
public:
    explicit ZuEventComboStart(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
