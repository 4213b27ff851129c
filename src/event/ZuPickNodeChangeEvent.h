#pragma once

#include "event/ZuEvent.h"

class ZuNode;

// The picked node changed; neither pointer is retained.
class ZuPickNodeChangeEvent : public ZuEvent {
public:
    explicit ZuPickNodeChangeEvent(const char* sceneName = "") : ZuEvent(sceneName, ZU_EVENT_PICK_NODE_CHANGE) {}

    ZuNode* oldNode = nullptr;
    ZuNode* newNode = nullptr;
};
