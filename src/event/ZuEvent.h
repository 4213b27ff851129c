#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"

// Event types carried in ZuEvent::type. Classes whose type stays 0 are told
// apart by dynamic_cast or by their event name.
enum ZU_EVENT_TYPE {
    ZU_EVENT_NONE = 0,
    ZU_EVENT_TOUCH_BEGIN = 1,
    ZU_EVENT_TOUCH_MOVE = 2,
    ZU_EVENT_TOUCH_END = 3,
    ZU_EVENT_CAMERA_OREN = 4,
    ZU_EVENT_PICK = 5,
    ZU_EVENT_PICK_NODE_CHANGE = 6,
    ZU_EVENT_ANIMATE = 7,
    ZU_EVENT_TIMEOUT = 36,
    ZU_EVENT_RESET_TIME_STATE = 37,
    ZU_EVENT_PARSE = 38,
    ZU_EVENT_REACT = 39,
    ZU_EVENT_VIDEO_CTRL = 40,
    ZU_EVENT_VIDEO_STATUS = 41,
    ZU_EVENT_TEXTURE = 42,
    ZU_EVENT_INTENSITY_UPDATE = 43,
    ZU_EVENT_SLIM_STRENGTH = 44,
    ZU_EVENT_FACE_BEAUTIFY = 45,
    ZU_EVENT_PERSON_NOTICE = 46,
    ZU_EVENT_PERSON = 47,
    ZU_EVENT_DETECT_ARRIVED = 48,
    ZU_EVENT_PET_ACTION = 49,
    ZU_EVENT_ACTION_LOCATION = 50,
    ZU_EVENT_PLAY_ACTION = 51,
    ZU_EVENT_PLAY_ACTION_DONE = 52,
    ZU_EVENT_BOUNDING_BOX = 53,
    ZU_EVENT_SCALE = 54,
    ZU_EVENT_EFFECT = 55,
    ZU_EVENT_ANIMATE_SYNC_POSITION = 56,
    ZU_EVENT_GAME_OVER = 57,
    ZU_EVENT_MODEL_PICK_UP = 58,
};

// A broadcast message. The event manager owns an event once it is pushed and
// releases it after every receiver has seen it.
class ZuEvent : public ZuRefObject {
public:
    explicit ZuEvent(const char* sceneName = "", int type = ZU_EVENT_NONE)
        : sceneName(sceneName), type(type) {}

    // The object it is called on is the pattern: an empty scene name matches
    // events of every scene.
    virtual bool isEqual(ZuEvent* other);

    qz::string sceneName;
    int type;
    qz::string name;
    int resUID = -1;
};
