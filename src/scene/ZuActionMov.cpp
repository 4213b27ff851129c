#include "scene/ZuActionMov.h"

#include "scene/ZuNode.h"

void ZuActionMov::setStartPoint(float x, float y, float z) {
    m_start.set(x, y, z);
    computeTotal();
}

void ZuActionMov::setStopPoint(float x, float y, float z) {
    m_stop.set(x, y, z);
    computeTotal();
}

void ZuActionMov::setSpeed(float speed) {
    m_speed = speed;
    computeTotal();
}

void ZuActionMov::computeTotal() {
    float distance = (m_stop - m_start).length();
    m_total = m_speed != 0.0f ? distance / m_speed : 0.0f;
}

void ZuActionMov::run(ZuNode* node, float delta) {
    if (!node) return;
    m_time += delta * 0.001f;
    // A zero-length move is already at its end.
    float t = m_total > 0.0f ? m_time / m_total : 1.0f;
    if (t < 0.0f) t = 0.0f;
    if (t > 1.0f) t = 1.0f;
    ZuVec3 p = m_start + (m_stop - m_start) * t;
    node->setPositionX(p.x, p.y, p.z);
}
