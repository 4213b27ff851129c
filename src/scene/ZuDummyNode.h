#pragma once

#include "scene/ZuNode.h"

// The root of one loaded package in one scene. Once all its children are
// ready it says so once, with an effect event (type 55, name "any", the
// package's resUID, state 1) that triggers can wait for.
class ZuDummyNode : public ZuNode {
public:
    explicit ZuDummyNode(ZuAppMain* app);

    void update(float delta) override;
    void addChild(ZuNode* child) override { ZuNode::addChild(child); }
    bool removeChild(ZuNode* child) override { return ZuNode::removeChild(child); }
    // Sends the ready event again after the next update that finds it ready.
    void reset() { readySent = false; }
    bool isReadySent() const { return readySent; }

private:
    bool readySent = false;
};
