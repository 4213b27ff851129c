#pragma once

#include "event/ZuEventVideo.h"

// Tells the status of a video.
class ZuEventVideoStatus : public ZuEventVideo {
public:
    explicit ZuEventVideoStatus(const char* sceneName = "") : ZuEventVideo(sceneName, ZU_EVENT_VIDEO_STATUS) {}

    int value = 0;
};
