#include "basesys/OLEngineMgr.h"

#include "basesys/ZuAppMainWrap.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectMgr.h"
#include "data/ZuDetectRecordLength.h"
#include "platform/OLEglMgr.h"
#include "platform/ZuLog.h"

#include <cstdlib>
#include <string>

bool OLEngineMgr::init(JNIEnv* env, const QZEngineConfig* hostConfig) {
    if (thread || !hostConfig) return false;
    config = *hostConfig;
    hostContext = eglGetCurrentContext();
    if (hostContext == EGL_NO_CONTEXT) {
        QZLOGW("OLEngine: init needs the host's GL context current on the calling thread");
        return false;
    }
#if defined(__ANDROID__)
    if (env) env->GetJavaVM(&vm);
#else
    (void)env;
#endif
    callbacks.start = &OLEngineMgr::threadStart;
    callbacks.process = &OLEngineMgr::threadProcess;
    callbacks.end = &OLEngineMgr::threadEnd;
    thread = new ZuThread();
    thread->init(&callbacks, this);

    owned = new ZuAppMainWrap();
    owned->init();
    owned->addRespath("");
    owned->addRespath(config.resourcePath.c_str());
    owned->initZuBase();
    owned->setState("wrap", ZU_ENG_STATE_RUNNING);
    owned->getAppInter()->setDetectType(DETECTTYPE_SELF);
    if (ZuDetectMgr* detect = ZuGBase::detectMgrOf(owned)) detect->init(DETECTTYPE_SELF);
    owned->getGlobalMgr()->getConfig()->setCameraDsp(config.sceneName.c_str(), config.width, config.height,
                                                     config.angle);
    createScene();
    app = owned;
    return true;
}

void OLEngineMgr::createScene() {
    const char* scene = config.sceneName.c_str();
    ZuAppNative* native = owned->getAppInter();
    native->setCameraMirror(scene, true);
    owned->setState("ol2", ZU_ENG_STATE_RUNNING);
    native->createLogicSceneFull(scene, config.windowWidth, config.windowHeight, config.width, config.height);
    native->createBGNode(scene, config.inputTexture, 2, config.width, config.height);
    native->setSceneMirror(scene, false);
    if (config.outputTexture != 0)
        native->createOutputTextureNode(scene, (config.sceneName + "_beautyouttex").c_str(),
                                        static_cast<unsigned>(config.outputTexture), 2, true, false);
}

void OLEngineMgr::threadStart(void* self) {
    auto* mgr = static_cast<OLEngineMgr*>(self);
    mgr->egl = new OLEglMgr();
    if (!mgr->egl->init(mgr->hostContext)) return;
    const char* scene = mgr->config.sceneName.c_str();
    bool surface = mgr->config.surface && mgr->egl->createEglSurface(scene, nullptr, mgr->config.surface);
    if (!surface) surface = mgr->egl->createEglSurface(scene, mgr->config.width, mgr->config.height);
    mgr->eglReady = surface;
}

void OLEngineMgr::threadProcess(void* self) {
    auto* mgr = static_cast<OLEngineMgr*>(self);
    if (!mgr->egl || !mgr->eglReady || !mgr->egl->makeCurrent(mgr->config.sceneName.c_str())) return;
    if (mgr->updateEngine()) mgr->egl->swapBuffers(mgr->config.sceneName.c_str());
}

void OLEngineMgr::threadEnd(void* self) {
    auto* mgr = static_cast<OLEngineMgr*>(self);
    delete mgr->egl;
    mgr->egl = nullptr;
    mgr->eglReady = false;
}

bool OLEngineMgr::updateEngine() {
    ZuAppMainWrap* engine = app;
    if (!engine || engine->getState() != ZU_ENG_STATE_RUNNING) return false;
    engine->update();
    engine->directrender(config.sceneName.c_str());
    ++frames;
    return true;
}

bool OLEngineMgr::unInit() {
    if (!thread && !owned) return false;
    if (thread) {
        thread->destroy();
        delete thread;
        thread = nullptr;
    }
    app = nullptr;
    if (owned) {
        // The frame thread's context is gone: the host's context, which
        // shares the engine's objects, is current here and deletes them.
        owned->getAppInter()->destoryLogicScene(config.sceneName.c_str());
        owned->setState("wrap", ZU_ENG_STATE_STOPPING);
        owned->destroyZuBase();
        owned->destroy();
        qzSafeRelease(owned);
    }
    return true;
}

bool OLEngineMgr::pushCameraData(char* data, int size) {
    ZuAppMainWrap* engine = app;
    if (!engine) return false;
    if (!data || size <= 0)
        engine->getAppInter()->pushCameraData(config.sceneName.c_str(), nullptr, 0);
    else
        engine->getAppInter()->pushCameraData(config.sceneName.c_str(), data, size);
    return true;
}

bool OLEngineMgr::pushDetectData(char* data, int size) {
    ZuAppMainWrap* engine = app;
    if (!engine) return false;
    if (!data || size <= 0) {
        engine->getAppInter()->setDetectData(config.sceneName.c_str(), nullptr, 0);
        return true;
    }
    const int length = ZuDetectRecordLength::of(DETECTTYPE_SELF, data);
    if (length < 0 || length > size) {
        QZLOGW("OLEngine: face record refused: %d bytes given, its face count needs %d", size, length);
        return false;
    }
    engine->getAppInter()->setDetectData(config.sceneName.c_str(), data, length);
    return true;
}

bool OLEngineMgr::loadEffect(const char* path, int id) {
    ZuAppMainWrap* engine = app;
    if (!engine || !path) return false;
    engine->getAppInter()->loadEffect(config.sceneName.c_str(), path, id, std::abs(id));
    return true;
}

bool OLEngineMgr::clearEffect(int id) {
    ZuAppMainWrap* engine = app;
    if (!engine) return false;
    engine->getAppInter()->delEffect(config.sceneName.c_str(), nullptr, id);
    return true;
}
