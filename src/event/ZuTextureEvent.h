#pragma once

#include "event/ZuEvent.h"

// A texture load finished; sent with an empty scene name.
class ZuTextureEvent : public ZuEvent {
public:
    explicit ZuTextureEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_TEXTURE) {}

    int textureUid = -1;
};
