#include "scene/ZuActionMoveInertia.h"

#include "scene/ZuNode.h"

void ZuActionMoveInertia::run(ZuNode* node, float delta) {
    if (!node) return;
    if (m_pitch > kDeadZone)
        m_velocity = m_speedLimit;
    else if (m_pitch < -kDeadZone)
        m_velocity = -m_speedLimit;
    else
        m_velocity = 0.0f;

    float y = node->getPositionY() + m_velocity * delta * 0.001f;
    if (y > m_top) {
        y = m_top;
        m_velocity = 0.0f;
    }
    if (y < m_bottom) {
        y = m_bottom;
        m_velocity = 0.0f;
    }
    node->setPositionX(node->getPositionX(), y, node->getPositionZ());
}
