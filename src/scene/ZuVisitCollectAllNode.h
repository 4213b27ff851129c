#pragma once

#include "basesys/qzArray.h"
#include "scene/ZuVisitorBase.h"

// Collects every node of a walk (not retained), so that a caller can change
// the tree after the walk instead of during it.
class ZuVisitCollectAllNode : public ZuVisitorBase {
public:
    void visit(ZuNode* node) override { nodes.push_back(node); }
    const qz::array<ZuNode*>& getNodes() const { return nodes; }

private:
    qz::array<ZuNode*> nodes;
};
