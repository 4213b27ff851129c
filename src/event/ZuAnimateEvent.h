#pragma once

#include "event/ZuPersonEvent.h"

// An animation of a package started, stopped or looped ("aniPlay", "aniStop"...).
class ZuAnimateEvent : public ZuPersonEvent {
public:
    explicit ZuAnimateEvent(const char* sceneName = "") : ZuPersonEvent(sceneName, ZU_EVENT_ANIMATE) {}

    qz::string animationName;
    int resourceId = 0;
    int nodeUid = -1;
};
