#include "scene/ZuDiySys.h"

int ZuDiySys::setResType(int slot, int resUID) {
    auto* entry = slots.find(slot);
    int held = entry ? entry->getValue() : -1;
    slots.set(slot, resUID);
    return held;
}

int ZuDiySys::getResType(int slot) const {
    auto* entry = slots.find(slot);
    return entry ? entry->getValue() : -1;
}
