#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "scene/ZuVisitorBase.h"

class ZuAniSpineNode;

// Collects the skeletal stickers whose skeleton carries a given name.
class ZuSpineNodeNameVisitor : public ZuVisitorBase {
public:
    explicit ZuSpineNodeNameVisitor(const char* name) : name(name ? name : "") {}
    void visit(ZuNode* node) override;
    qz::array<ZuAniSpineNode*> getSpineNodeSet() const { return found; }
    uint32_t count() const { return found.size(); }

private:
    qz::string name;
    qz::array<ZuAniSpineNode*> found;
};
