#pragma once

#include "event/ZuEvent.h"
#include "render/math/ZuVec2.h"

// A match in Triple Down.
class ZuEventTripleDown : public ZuEvent {
public:
    explicit ZuEventTripleDown(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    int a = 0;
    int b = 0;
    ZuVec2 position;
};
