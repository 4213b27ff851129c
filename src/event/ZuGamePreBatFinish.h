#pragma once

#include "event/ZuEvent.h"

// A game round is about to finish.
class ZuGamePreBatFinish : public ZuEvent {
public:
    explicit ZuGamePreBatFinish(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}
};
