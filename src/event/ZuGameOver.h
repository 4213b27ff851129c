#pragma once

#include "event/ZuEvent.h"

// A game ended with a score; reaches the host.
class ZuGameOver : public ZuEvent {
public:
    explicit ZuGameOver(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_GAME_OVER) {}

    int score = 0;
};
