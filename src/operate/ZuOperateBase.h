#pragma once

#include "basesys/ZuGBase.h"

// A queued change of engine state. It carries its arguments as fields
// (strings copied) and does its work in process, on the render thread for
// the frame queue or on the load thread for the load queue.
class ZuOperateBase : public ZuGBase {
public:
    explicit ZuOperateBase(ZuAppMain* app) : ZuGBase(app) {}

    // delta: the frame delta in milliseconds, or 0 on the load thread.
    virtual void process(float delta) {}
};

// Marks operations meant for the load thread: no GL, no scene graph there.
class ZuOpLoadBase : public ZuOperateBase {
public:
    explicit ZuOpLoadBase(ZuAppMain* app) : ZuOperateBase(app) {}
};
