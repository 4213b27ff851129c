#include "data/ZuDataMgr.h"

#include "scene/NodeIDPoolMgr.h"

ZuDataMgr::ZuDataMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuDataMgr::~ZuDataMgr() { destroy(); }

void ZuDataMgr::init() {
    if (m_nodeIDPool) return;
    m_nodeIDPool = new NodeIDPoolMgr(app);
    m_nodeIDPool->init();
}

void ZuDataMgr::destroy() {
    if (m_nodeIDPool) m_nodeIDPool->destroy();
    qzSafeRelease(m_nodeIDPool);
}

void ZuDataMgr::update(float delta) {
    // Camera and detection sources notify their listeners here, once they exist.
}
