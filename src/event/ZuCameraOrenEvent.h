#pragma once

#include "event/ZuEvent.h"

// Device orientation from the host's sensors, in degrees.
class ZuCameraOrenEvent : public ZuEvent {
public:
    explicit ZuCameraOrenEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_CAMERA_OREN) {}

    float yaw = 0.0f;
    float pitch = 0.0f;
    float roll = 0.0f;
};
