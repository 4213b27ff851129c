#pragma once

#include "operate/ZuOperateBase.h"

// Puts a package's id into its slot. When the slot was taken, the nodes of
// this package's own id are deleted first, so a package loaded again under
// its id replaces itself; another id in a taken slot leaves the older
// package standing until it is deleted by its own id.
class ZuOperateFilterEft : public ZuOperateBase {
public:
    ZuOperateFilterEft(ZuAppMain* app, int slot, int resUID) : ZuOperateBase(app), slot(slot), resUID(resUID) {}
    void process(float delta) override;

private:
    int slot;
    int resUID;
};
