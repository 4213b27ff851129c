#pragma once

#include "event/ZuEvent.h"

// The uid found under a finger by the colour-pick pass.
class ZuPickEvent : public ZuEvent {
public:
    explicit ZuPickEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PICK) {}

    int pickedUid = -1;
};
