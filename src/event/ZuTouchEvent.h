#pragma once

#include "event/ZuEvent.h"

// A touch: type 1 begin, 2 move, 3 end, in design coordinates.
class ZuTouchEvent : public ZuEvent {
public:
    explicit ZuTouchEvent(const char* sceneName = "", int type = ZU_EVENT_TOUCH_BEGIN) : ZuEvent(sceneName, type) {}

    int x = 0;
    int y = 0;
};
