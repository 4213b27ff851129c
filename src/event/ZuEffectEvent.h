#pragma once

#include "event/ZuEvent.h"

// A package's readiness; type 55 when sent by its dummy node.
class ZuEffectEvent : public ZuEvent {
public:
    explicit ZuEffectEvent(const char* sceneName = "", int type = ZU_EVENT_NONE) : ZuEvent(sceneName, type) {}

    int targetUid = -1;
    int state = 0;
};
