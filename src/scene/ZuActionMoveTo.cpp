#include "scene/ZuActionMoveTo.h"

#include "scene/ZuNode.h"

ZuActionMoveTo::ZuActionMoveTo(const ZuVec3& from, const ZuVec3& to)
    : m_to(to), m_from(from), m_dir((to - from).normalized()), m_length((to - from).length()) {}

void ZuActionMoveTo::run(ZuNode* node, float delta) {
    if (!node) return;
    m_distance += m_speed * delta * 0.001f;
    ZuVec3 p = m_from + m_dir * m_distance;
    node->setPositionX(p.x, p.y, p.z);
}
