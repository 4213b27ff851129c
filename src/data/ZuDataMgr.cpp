#include "data/ZuDataMgr.h"

#include "data/ZuDataCameraScene.h"
#include "scene/NodeIDPoolMgr.h"

ZuDataMgr::ZuDataMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuDataMgr::~ZuDataMgr() { destroy(); }

void ZuDataMgr::init() {
    if (m_nodeIDPool) return;
    m_nodeIDPool = new NodeIDPoolMgr(app);
    m_nodeIDPool->init();
    m_cameraScene = new ZuDataCameraScene(app);
}

void ZuDataMgr::destroy() {
    qzSafeRelease(m_cameraScene);
    if (m_nodeIDPool) m_nodeIDPool->destroy();
    qzSafeRelease(m_nodeIDPool);
}

ZuDataGenCamera* ZuDataMgr::getDataGenCamera(const char* sceneName) {
    return m_cameraScene ? m_cameraScene->getDataGenCamera(sceneName) : nullptr;
}

void ZuDataMgr::update(float delta) {
    if (m_cameraScene) m_cameraScene->noticeListener(delta);
}
