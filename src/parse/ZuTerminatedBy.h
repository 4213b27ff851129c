#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzString.h"

// One "terminatedBy" entry of a package item: what stops the item's node.
// "category" is a face event name, "any" (the package is ready) or
// "dependency" (another animation's event, named by "dependsOn" and "event").
class ZuTerminatedBy : public ZuObject {
public:
    ZuTerminatedBy() = default;
    // Kept by value in arrays: copies carry the texts only.
    ZuTerminatedBy(const ZuTerminatedBy& other)
        : ZuObject(), category(other.category), dependsOn(other.dependsOn), event(other.event) {}
    ZuTerminatedBy& operator=(const ZuTerminatedBy& other) {
        category = other.category;
        dependsOn = other.dependsOn;
        event = other.event;
        return *this;
    }

    qz::string category;
    qz::string dependsOn;
    qz::string event;
};
