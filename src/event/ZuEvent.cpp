#include "event/ZuEvent.h"

bool ZuEvent::isEqual(ZuEvent* other) {
    if (!other) return false;
    if (!sceneName.empty()) return name == other->name && sceneName == other->sceneName;
    return name == other->name;
}
