#pragma once

#include "event/ZuEvent.h"

// A model was picked up by touch.
class ZuModelPickUpEvent : public ZuEvent {
public:
    explicit ZuModelPickUpEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_MODEL_PICK_UP) {}

    qz::string modelName;
};
