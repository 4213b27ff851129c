#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzString.h"

// One "reactEvents" entry: on the event, switch to the clip "animation";
// "loop" is decimal text ("1" loops), "next" is the clip to go on with
// when a clip that does not loop completes.
class ZuReactEventBy : public ZuObject {
public:
    ZuReactEventBy() = default;
    // Kept by value in arrays: copies carry the texts only.
    ZuReactEventBy(const ZuReactEventBy& other)
        : ZuObject(), event(other.event), animation(other.animation), loop(other.loop), next(other.next) {}
    ZuReactEventBy& operator=(const ZuReactEventBy& other) {
        event = other.event;
        animation = other.animation;
        loop = other.loop;
        next = other.next;
        return *this;
    }

    qz::string event;
    qz::string animation;
    qz::string loop;
    qz::string next;
};
