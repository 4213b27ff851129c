#pragma once

#include "event/ZuEvent.h"

// The result of one game round.
class ZuGameBatResult : public ZuEvent {
public:
    explicit ZuGameBatResult(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int r0 = -1;
    int r1 = -1;
    int r2 = -1;
};
