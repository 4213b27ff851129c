#pragma once

#include "event/ZuEvent.h"

// Asks a pet to perform an action.
class ZuPetActionEvent : public ZuEvent {
public:
    explicit ZuPetActionEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PET_ACTION) {}

    qz::string actionName;
    int value = 0;
};
