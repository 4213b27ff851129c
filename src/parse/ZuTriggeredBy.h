#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzString.h"

// One "triggeredBy" entry of a package item: what starts the item's node.
// "category" is a face event name, "any" (the package is ready) or
// "dependency" (another animation's event, named by "dependsOn" and "event").
class ZuTriggeredBy : public ZuObject {
public:
    ZuTriggeredBy() = default;
    // Kept by value in arrays: copies carry the texts only.
    ZuTriggeredBy(const ZuTriggeredBy& other)
        : ZuObject(), category(other.category), dependsOn(other.dependsOn), event(other.event) {}
    ZuTriggeredBy& operator=(const ZuTriggeredBy& other) {
        category = other.category;
        dependsOn = other.dependsOn;
        event = other.event;
        return *this;
    }

    qz::string category;
    qz::string dependsOn;
    qz::string event;
};
