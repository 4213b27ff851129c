#include "data/ZuDataCameraScene.h"

#include "data/ZuDataGenCamera.h"

ZuDataCameraScene::ZuDataCameraScene(ZuAppMain* app) : ZuGBase(app) { m_lock.create(); }

ZuDataCameraScene::~ZuDataCameraScene() {
    clear();
    m_lock.destroy();
}

ZuDataGenCamera* ZuDataCameraScene::getDataGenCamera(const char* sceneName) {
    const char* name = sceneName ? sceneName : "";
    ZuLockGuard hold(m_lock);
    if (auto* node = m_cameras.find(name)) return node->getValue();
    auto* camera = new ZuDataGenCamera(); // the map keeps the creator's reference
    m_cameras.insert(qz::string(name), camera);
    return camera;
}

void ZuDataCameraScene::noticeListener(float delta) {
    ZuLockGuard hold(m_lock);
    for (auto it = m_cameras.getIterator(); !it.atEnd(); ++it) it->getValue()->noticeListener(delta);
}

void ZuDataCameraScene::clear() {
    ZuLockGuard hold(m_lock);
    for (auto it = m_cameras.getIterator(); !it.atEnd(); ++it) it->getValue()->release();
    m_cameras.clear();
}
