#include "scene/ZuSpineNodeNameVisitor.h"

#include "logicsys/Animate2D/ZuAniSpineNode.h"

void ZuSpineNodeNameVisitor::visit(ZuNode* node) {
    ZuAniSpineNode* spineNode = dynamic_cast<ZuAniSpineNode*>(node);
    if (spineNode && spineNode->getSpine() && spineNode->getSpine()->getSpineName() == name)
        found.push_back(spineNode);
}
