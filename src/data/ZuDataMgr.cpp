#include "data/ZuDataMgr.h"

#include "data/DETECTTYPE.h"
#include "data/ZuDataCameraScene.h"
#include "data/ZuDataGenAS.h"
#include "data/ZuDataGenFP.h"
#include "data/ZuDataGenST.h"
#include "data/ZuDataGenSelf.h"
#include "platform/ZuLog.h"
#include "scene/NodeIDPoolMgr.h"

ZuDataMgr::ZuDataMgr(ZuAppMain* app) : ZuGBase(app) { m_genLock.create(); }

ZuDataMgr::~ZuDataMgr() {
    destroy();
    m_genLock.destroy();
}

void ZuDataMgr::init() {
    if (m_nodeIDPool) return;
    m_nodeIDPool = new NodeIDPoolMgr(app);
    m_nodeIDPool->init();
    m_cameraScene = new ZuDataCameraScene(app);
}

void ZuDataMgr::destroy() {
    setDetectDataType(DETECTTYPE_NONE);
    qzSafeRelease(m_cameraScene);
    if (m_nodeIDPool) m_nodeIDPool->destroy();
    qzSafeRelease(m_nodeIDPool);
}

ZuDataGenCamera* ZuDataMgr::getDataGenCamera(const char* sceneName) {
    return m_cameraScene ? m_cameraScene->getDataGenCamera(sceneName) : nullptr;
}

void ZuDataMgr::setDetectDataType(int detectType) {
    if (detectType < DETECTTYPE_NONE || detectType > DETECTTYPE_SELF) {
        QZLOGW("ZuDataMgr::setDetectDataType: unknown detect type %d, no face generator", detectType);
        detectType = DETECTTYPE_NONE;
    }
    ZuLockGuard guard(m_genLock);
    if (detectType == m_detectType) return;
    qzSafeRelease(m_genAS);
    qzSafeRelease(m_genST);
    qzSafeRelease(m_genFP);
    qzSafeRelease(m_genSelf);
    m_detectType = detectType;
    switch (detectType) {
    case DETECTTYPE_AS: m_genAS = new ZuDataGenAS(app); break;
    case DETECTTYPE_ST: m_genST = new ZuDataGenST(app); break;
    case DETECTTYPE_FP: m_genFP = new ZuDataGenFP(app); break;
    case DETECTTYPE_SELF: m_genSelf = new ZuDataGenSelf(app); break;
    default: break;
    }
}

ZuDataGenFace* ZuDataMgr::retainFaceGen(int detectType) {
    ZuLockGuard guard(m_genLock);
    ZuDataGenFace* gen = nullptr;
    switch (detectType) {
    case DETECTTYPE_AS: gen = m_genAS; break;
    case DETECTTYPE_ST: gen = m_genST; break;
    case DETECTTYPE_FP: gen = m_genFP; break;
    case DETECTTYPE_SELF: gen = m_genSelf; break;
    default: break;
    }
    if (gen) gen->retain();
    return gen;
}

void ZuDataMgr::update(float delta) {
    if (m_cameraScene) m_cameraScene->noticeListener(delta);
    // Face sources after the camera, so that a tick's planes are in place first.
    if (m_genAS) m_genAS->noticeListener(delta);
    if (m_genFP) m_genFP->noticeListener(delta);
    if (m_genSelf) m_genSelf->noticeListener(delta);
    if (m_genST) m_genST->noticeListener(delta);
}
