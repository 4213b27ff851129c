#pragma once

#include "event/ZuEvent.h"

// A model finished an action.
class ZuPlayActionDoneEvent : public ZuEvent {
public:
    explicit ZuPlayActionDoneEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PLAY_ACTION_DONE) {}

    qz::string actionName;
    float value = 0.0f;
};
