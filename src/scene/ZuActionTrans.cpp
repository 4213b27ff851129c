#include "scene/ZuActionTrans.h"

#include "scene/ZuNode.h"

void ZuActionTrans::run(ZuNode* node, float delta) {
    if (node) node->setPositionX(400.0f, 400.0f, 0.0f);
}
