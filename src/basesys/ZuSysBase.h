#pragma once

#include "basesys/qzString.h"
#include "event/ZuEventProc.h"

// A named subsystem that receives events.
class ZuSysBase : public ZuEventProc {
public:
    explicit ZuSysBase(ZuAppMain* app, const char* name = "ZuSysBase") : ZuEventProc(app), name(name) {}

    virtual void init() {}
    const qz::string& getName() const { return name; }

protected:
    qz::string name;
};
