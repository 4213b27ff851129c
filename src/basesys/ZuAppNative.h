#pragma once

#include "basesys/ZuObject.h"

class ZuAppMain;

// The one door through which a host talks to a running engine. Its methods
// test the engine state, build an operation and push it, so that the change
// happens on the render thread. Owned by ZuAppMain and deleted, not released.
class ZuAppNative : public ZuObject {
public:
    explicit ZuAppNative(ZuAppMain* app) : app(app) {}
    ~ZuAppNative() override = default;

    ZuAppMain* getApp() const { return app; }

protected:
    ZuAppMain* app;
};
