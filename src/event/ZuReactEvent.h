#pragma once

#include "event/ZuEvent.h"

// A reaction request; matched by event name alone.
class ZuReactEvent : public ZuEvent {
public:
    explicit ZuReactEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_REACT) {}

    // Reactions match by event name alone, whatever the scene.
    bool isEqual(ZuEvent* other) override;

    qz::string animation;
    qz::string next;
    int loop = 0;
};
