#pragma once

#include "event/ZuEvent.h"

// Two beautify strengths at once.
class ZuFaceBeautifyEvent : public ZuEvent {
public:
    explicit ZuFaceBeautifyEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_FACE_BEAUTIFY) {}

    int id = 0;
    float v0 = 0.0f;
    float v1 = 0.0f;
};
