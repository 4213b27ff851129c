#include "event/ZuPersonEvent.h"

bool ZuPersonEvent::isEqual(ZuEvent* other) {
    if (!ZuEvent::isEqual(other)) return false;
    auto* person = dynamic_cast<ZuPersonEvent*>(other);
    if (!person) return true;
    if (personID != 0 && person->personID != 0) return personID == person->personID;
    return true;
}
