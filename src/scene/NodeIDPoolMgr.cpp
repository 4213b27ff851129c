#include "scene/NodeIDPoolMgr.h"

void NodeIDPoolMgr::init() {
    m_next = 0;
    m_freed.clear();
}

void NodeIDPoolMgr::destroy() { m_freed.clear(); }

int NodeIDPoolMgr::applyUID() {
    if (!m_freed.empty()) {
        int uid = m_freed.getLast();
        m_freed.erase(m_freed.size() - 1);
        return uid;
    }
    return m_next++;
}

void NodeIDPoolMgr::returnUID(int uid) {
    if (uid >= 0) m_freed.push_back(uid);
}
