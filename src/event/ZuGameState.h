#pragma once

#include "event/ZuEvent.h"

// A game's state changed.
class ZuGameState : public ZuEvent {
public:
    explicit ZuGameState(int state = 0, const char* sceneName = "") : ZuEvent(sceneName), state(state) {}

    int state = 0;
};
