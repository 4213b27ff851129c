#pragma once

#include "event/ZuEvent.h"

// A Face Dance unit ended.
class ZuEventFDUnitDead : public ZuEvent {
public:
    explicit ZuEventFDUnitDead(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    qz::string unitName;
    int a = 0;
    int b = 0;
    float value = 0.0f;
    bool flag = false;
};
