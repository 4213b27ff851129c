#pragma once

#include "basesys/ZuRefObject.h"

class ZuNode;

// A small object that changes a node over time. The node's update drives it
// each frame and drops it once isEnd() says it is done. delta is the frame
// time in milliseconds; actions work in seconds (delta * 0.001).
class ZuActionBase : public ZuRefObject {
public:
    virtual void run(ZuNode* node, float delta) {}
    virtual void enter(ZuNode* node) {}
    virtual void exit(ZuNode* node) {}
    virtual bool isEnd() { return true; }
};
