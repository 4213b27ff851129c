#pragma once

#include "event/ZuEvent.h"
#include "render/math/ZuVec2.h"

// The total score with where to show it.
class ZuEventTotalScore : public ZuEvent {
public:
    explicit ZuEventTotalScore(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int a = 0;
    int b = 0;
    ZuVec2 position;
};
