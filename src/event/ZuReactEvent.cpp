#include "event/ZuReactEvent.h"

bool ZuReactEvent::isEqual(ZuEvent* other) { return other && name == other->name; }
