#pragma once

#include "event/ZuEvent.h"

// An expression or person change of one face. personID 0 is a wildcard when
// matching; -1 means not yet assigned.
class ZuPersonEvent : public ZuEvent {
public:
    explicit ZuPersonEvent(const char* sceneName = "", int type = ZU_EVENT_PERSON)
        : ZuEvent(sceneName, type) {}

    bool isEqual(ZuEvent* other) override;

    int personID = -1;
    float value = 1.0f;
    int extra = 0;
};
