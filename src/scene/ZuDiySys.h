#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"

// Which effect package sits in which of the host's slots (0 to 999).
class ZuDiySys : public ZuGBase {
public:
    explicit ZuDiySys(ZuAppMain* app) : ZuGBase(app) {}

    void init() {}
    void destroy() { slots.clear(); }

    static bool detectResType(int slot) { return slot >= 0 && slot < 1000; }
    // Stores resUID in the slot; returns what the slot held, or -1.
    int setResType(int slot, int resUID);
    int getResType(int slot) const;

private:
    qz::map<int, int> slots;
};
