#pragma once

#include "basesys/ZuRefObject.h"

class ZuNode;

// Visits every node of a tree in pre-order through ZuNode::deepVisit.
class ZuVisitorBase : public ZuRefObject {
public:
    virtual void visit(ZuNode* node) {}
};
