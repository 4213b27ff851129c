#pragma once

#include "event/ZuEvent.h"

// Base of the video control and status events.
class ZuEventVideo : public ZuEvent {
public:
    explicit ZuEventVideo(const char* sceneName = "", int type = ZU_EVENT_NONE) : ZuEvent(sceneName, type) {}

    qz::string videoName;
};
