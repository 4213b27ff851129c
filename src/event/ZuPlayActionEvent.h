#pragma once

#include "event/ZuEvent.h"

// Asks a model to play an action; resUID holds the id.
class ZuPlayActionEvent : public ZuEvent {
public:
    explicit ZuPlayActionEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PLAY_ACTION) {}

    qz::string actionName;
    bool loop = false;
    float count = 0.0f;
};
