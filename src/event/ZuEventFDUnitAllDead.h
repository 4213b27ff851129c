#pragma once

#include "event/ZuEvent.h"

// Every Face Dance unit ended.
class ZuEventFDUnitAllDead : public ZuEvent {
public:
    explicit ZuEventFDUnitAllDead(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
