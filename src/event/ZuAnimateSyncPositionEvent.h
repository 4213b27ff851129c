#pragma once

#include "event/ZuEvent.h"

// Keeps two animations at one position.
class ZuAnimateSyncPositionEvent : public ZuEvent {
public:
    explicit ZuAnimateSyncPositionEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_ANIMATE_SYNC_POSITION) {}

    qz::string first;
    qz::string second;
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};
