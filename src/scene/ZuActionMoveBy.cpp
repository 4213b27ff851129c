#include "scene/ZuActionMoveBy.h"

#include "scene/ZuNode.h"

void ZuActionMoveBy::run(ZuNode* node, float delta) {
    if (!node) return;
    ZuVec3 p = node->getPosition() + m_dir * (m_speed * delta * 0.001f);
    node->setPositionX(p.x, p.y, p.z);
}
