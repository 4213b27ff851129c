#include "scene/ZuVisitCollectResID.h"

#include "scene/ZuNode.h"

void ZuVisitCollectResID::visit(ZuNode* node) {
    if (node && node->getresUID() == resUID) found.push_back(static_cast<unsigned>(resUID));
}
