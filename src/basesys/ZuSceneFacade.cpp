#include "basesys/ZuSceneFacade.h"

#include "basesys/Camera.h"
#include "basesys/CBrockHelp.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataShareSwap.h"
#include "data/ZuDetectRecordLength.h"
#include "event/ZuEventMgr.h"
#include "platform/ZuLog.h"

ZuSceneFacade::~ZuSceneFacade() { destroyEngine(); }

bool ZuSceneFacade::usable(const char* call) const {
    if (engine && help && engine->isEnabled()) return true;
    QZLOGW("%s (scene %s): no engine; call createEngine first", call, scene.c_str());
    return false;
}

bool ZuSceneFacade::running(const char* call) const {
    if (!usable(call)) return false;
    if (engine->getState() == ZU_ENG_STATE_RUNNING) return true;
    QZLOGW("%s (scene %s): the engine is not running; frame dropped", call, scene.c_str());
    return false;
}

void ZuSceneFacade::createEngine() {
    if (!engine) {
        engine = new ZuAppMainAsync();
        engine->init();
        engine->addRespath("");
    }
    if (!help) {
        help = new CBrockHelp(engine);
        help->init();
    }
}

void ZuSceneFacade::addSearchPath(const char* path) {
    if (usable("addSearchPath") && path) engine->addRespath(path);
}

void ZuSceneFacade::setSyncMode(int mode) {
    if (help) help->syncMode = mode;
}

void ZuSceneFacade::destroyEngine() {
    if (engine && engine->getState() != ZU_ENG_STATE_STOPPED) stopEngine();
    qzSafeRelease(help);
    if (engine) {
        engine->destroy();
        qzSafeRelease(engine);
    }
}

void ZuSceneFacade::startEngine(int, int width, int height, float) {
    if (!usable("startEngine")) return;
    if (engine->getState() != ZU_ENG_STATE_STOPPED) {
        QZLOGW("startEngine (scene %s): already started", scene.c_str());
        return;
    }
    if (width <= 0 || height <= 0) {
        QZLOGW("startEngine (scene %s): refused size %dx%d", scene.c_str(), width, height);
        return;
    }
    // The helper joins the event manager before a frame thread reads it.
    engine->syncInit();
    ZuGlobalMgr* managers = engine->getGlobalMgr();
    managers->getEventMgr()->registProcer(help);
    if (help->syncMode != 1) engine->asyncInit();
    managers->getConfig()->setDetectType(DETECTTYPE_AS);
    engine->getAppInter()->setDetectType(DETECTTYPE_AS);
    engine->createOffGLContext(scene.c_str(), width, height);
    engine->getAppInter()->createLogicScene(scene.c_str(), width, height, width, height);
    afterStart(width, height);
}

void ZuSceneFacade::stopEngine() {
    if (!usable("stopEngine") || engine->getState() == ZU_ENG_STATE_STOPPED) return;
    beforeStop();
    if (help->syncMode == 1) {
        if (ZuEventMgr* events = engine->getGlobalMgr()->getEventMgr()) events->unregistProcer(help);
        engine->syncDestroy();
    } else {
        // The frame thread ends first; the stop then clears the event list.
        engine->asyncDestroy();
    }
    help->resetEft();
}

void ZuSceneFacade::setCameraDsp(int format, int width, int height, float angle) {
    if (!running("setCameraDsp")) return;
    ZuAppNative* native = engine->getAppInter();
    const int degrees = static_cast<int>(angle);
    if (degrees == 0 || degrees == 90 || degrees == 180)
        native->setCameraMirror(scene.c_str(), false);
    else if (degrees == 270)
        native->setCameraMirror(scene.c_str(), true);
    ZuConfig* config = engine->getGlobalMgr()->getConfig();
    config->setCameraDsp(scene.c_str(), width, height, degrees);
    native->createBGNode(scene.c_str(), format);
    // Host camera codes against the engine's image formats and the output
    // stream that gives the frame back in the format it came in.
    static const int kImageFormat[] = {4, 3, 1, 2};
    static const int kOutType[] = {2, 0, 3, 4};
    int outType = 6;
    if (format >= 0 && format <= 3) {
        config->cameraImageFormat = kImageFormat[format];
        outType = kOutType[format];
    }
    native->setOutSteamFormate(scene.c_str(), outType, false, false);
    auto* swap = new ZuDataShareSwap();
    help->setShareSwap(swap);
    swap->release();
}

void ZuSceneFacade::pushDetectData(const void* data) {
    if (!running("pushDetectData")) return;
    const auto type = static_cast<DETECTTYPE>(engine->getGlobalMgr()->getConfig()->getDetectType());
    const int length = ZuDetectRecordLength::of(type, data);
    if (length < 0) {
        QZLOGW("pushDetectData (scene %s): record refused: its face count is out of range", scene.c_str());
        return;
    }
    engine->getAppInter()->setDetectData(scene.c_str(), data, length);
}

void ZuSceneFacade::pushCameraData(void* data) {
    if (!running("pushCameraData")) return;
    if (!data || !help->getShareSwap()) {
        QZLOGW("pushCameraData (scene %s): %s", scene.c_str(), data ? "setCameraDsp was not called" : "no frame");
        return;
    }
    ZuAppNative* native = engine->getAppInter();
    if (help->isOutputOpen())
        native->openOutRenderData(scene.c_str());
    else
        native->closeOutRenderData(scene.c_str());
    Camera* camera = engine->getGlobalMgr()->getConfig()->getCamera(scene.c_str());
    processFrame(data, camera->width, camera->height);
}

void ZuSceneFacade::processFrame(void* data, int width, int height) {
    ZuDataShareSwap* swap = help->getShareSwap();
    swap->setBuffer(data, static_cast<int>(static_cast<int64_t>(width) * height * 3 / 2));
    engine->pushCameraData(scene.c_str(), data, swap);
    engine->fetchRenderData(scene.c_str(), data, swap);
    if (help->syncMode == 1) engine->syncRender();
}

void ZuSceneFacade::loadEffect(const char* path) {
    if (!path || !usable("loadEffect")) return;
    if (help->getCurrent() == path) return;
    if (!*path) {
        help->setCurrent("");
        clearEffect();
        return;
    }
    if (help->canLoadEft(path)) engine->loadEffect(scene.c_str(), path, CBrockHelp::kEffectUID, 0);
}

void ZuSceneFacade::clearEffect() {
    if (!usable("clearEffect")) return;
    engine->getAppInter()->delEffect(scene.c_str(), nullptr, CBrockHelp::kEffectUID);
    help->resetEft();
}

void ZuSceneFacade::delEffect() { clearEffect(); }
