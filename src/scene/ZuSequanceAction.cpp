#include "scene/ZuSequanceAction.h"

ZuSequanceAction::ZuSequanceAction(ZuActionBase* first, ZuActionBase* second, ZuActionBase* third)
    : m_first(first), m_second(second), m_third(third) {
    if (m_first) m_first->retain();
    if (m_second) m_second->retain();
    if (m_third) m_third->retain();
}

ZuSequanceAction::~ZuSequanceAction() {
    qzSafeRelease(m_first);
    qzSafeRelease(m_second);
    qzSafeRelease(m_third);
}

void ZuSequanceAction::run(ZuNode* node, float delta) {
    if (!m_first || !m_second || !m_third) return;
    if (!m_first->isEnd())
        m_first->run(node, delta);
    else if (!m_second->isEnd())
        m_second->run(node, delta);
    else
        m_third->run(node, delta);
}

bool ZuSequanceAction::isEnd() {
    if (!m_first || !m_second || !m_third) return true;
    return m_first->isEnd() && m_second->isEnd() && m_third->isEnd();
}
