#pragma once

#include "event/ZuEventVideo.h"

// Asks the host to control a video.
class ZuEventVideoCtrl : public ZuEventVideo {
public:
    explicit ZuEventVideoCtrl(const char* sceneName = "") : ZuEventVideo(sceneName, ZU_EVENT_VIDEO_CTRL) {}

    int value = 0;
};
