#pragma once

#include "operate/ZuOperateBase.h"

class ZuEventProc;

// Registers an event receiver on the frame thread, where the event manager
// walks its list: the safe way for a host thread to add one (host
// callbacks, watchers) while an engine thread runs frames.
class ZuOperateRegistProcer : public ZuOperateBase {
public:
    ZuOperateRegistProcer(ZuAppMain* app, ZuEventProc* proc);
    ~ZuOperateRegistProcer() override;
    void process(float delta) override;

private:
    ZuEventProc* proc;
};
