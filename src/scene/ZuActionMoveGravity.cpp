#include "scene/ZuActionMoveGravity.h"

#include "scene/ZuNode.h"

void ZuActionMoveGravity::run(ZuNode* node, float delta) {
    if (!node) return;
    m_time += delta * 0.001f;
    float y = m_startY + m_launchSpeed * m_time - kGravity * m_time * m_time;
    if (y < m_floorY) {
        y = m_floorY;
        m_done = true;
    }
    node->setPositionX(node->getPositionX(), y, node->getPositionZ());
}
