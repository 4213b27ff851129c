#include "scene/ZuActionMoveByTime.h"

#include "scene/ZuNode.h"

void ZuActionMoveByTime::run(ZuNode* node, float delta) {
    ZuActionMoveBy::run(node, delta);
    m_time -= delta * 0.001f;
    if (m_time <= 0.0f && node) node->setVisible(false);
}
