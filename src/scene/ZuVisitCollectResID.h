#pragma once

#include "basesys/qzArray.h"
#include "scene/ZuVisitorBase.h"

// Counts the nodes of one package: the resUID is appended once per node
// that carries it.
class ZuVisitCollectResID : public ZuVisitorBase {
public:
    explicit ZuVisitCollectResID(int resUID) : resUID(resUID) {}
    void visit(ZuNode* node) override;
    const qz::array<unsigned>& getResIDs() const { return found; }

private:
    int resUID;
    qz::array<unsigned> found;
};
