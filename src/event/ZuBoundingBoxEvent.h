#pragma once

#include "event/ZuEvent.h"

// A node's screen box.
class ZuBoundingBoxEvent : public ZuEvent {
public:
    explicit ZuBoundingBoxEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_BOUNDING_BOX) {}

    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
};
