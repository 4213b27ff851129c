#pragma once

#include "basesys/ZuGBase.h"

class ZuEvent;

// Something that receives broadcast events once registered with ZuEventMgr.
class ZuEventProc : public ZuGBase {
public:
    explicit ZuEventProc(ZuAppMain* app) : ZuGBase(app) {}

    // True passes the event on to the next receiver; false stops it here.
    virtual bool procEvent(ZuEvent* event) { return true; }
};
