#pragma once

#include "event/ZuEvent.h"
#include "render/math/ZuRect.h"

// The bird's box.
class ZuEventFlappyBoundingBox : public ZuEvent {
public:
    explicit ZuEventFlappyBoundingBox(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_NONE) {}

    ZuRect box;
    int value = 0;
};
