#pragma once

#include "event/ZuEvent.h"

// The running combo count.
class ZuEventComboValue : public ZuEvent {
public:
    explicit ZuEventComboValue(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int value = 0;
    int level = 0;
    bool flag = false;
};
