#include "basesys/qztarn.h"

#include "basesys/ZuAppMainWrap.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDetectMgr.h"
#include "platform/ZuLog.h"

#include <string>

qztarn::~qztarn() {
    if (app && app->getState() != ZU_ENG_STATE_STOPPED) stopEngine();
    destroy();
}

bool qztarn::ready(const char* call) const {
    if (app) return true;
    QZLOGW("qztarn::%s: no engine; call initilize first", call);
    return false;
}

void qztarn::initilize() {
    if (app) return;
    app = new ZuAppMainWrap();
    app->init();
}

void qztarn::destroy() {
    if (!app) return;
    app->destroy();
    qzSafeRelease(app);
}

void qztarn::startEngine() {
    if (!ready("startEngine")) return;
    app->setState("qztarn", ZU_ENG_STATE_STOPPED);
    app->initZuBase();
    if (ZuDetectMgr* detect = ZuGBase::detectMgrOf(app)) detect->init(detectType);
    app->getAppInter()->setDetectType(static_cast<DETECTTYPE>(app->getGlobalMgr()->getConfig()->getDetectType()));
    app->setState("qztarn", ZU_ENG_STATE_RUNNING);
}

void qztarn::stopEngine() {
    if (!ready("stopEngine")) return;
    app->setState("qztarn", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
}

void qztarn::update() {
    if (!ready("update") || app->getState() == ZU_ENG_STATE_STOPPED) return;
    app->setState("qztarn", ZU_ENG_STATE_RUNNING);
    app->update();
}

void qztarn::updateEffectRes() {
    if (ready("updateEffectRes")) app->updateEffectRes();
}

void qztarn::directrender(const char* sceneName) {
    if (ready("directrender")) app->directrender(sceneName);
}

void qztarn::setFirstGetDert(bool first) {
    if (ready("setFirstGetDert")) app->setFirstGetDert(first);
}

void qztarn::addSearchPath(const char* path) {
    if (ready("addSearchPath") && path) app->addRespath(path);
}

void qztarn::setGlVersion(int version) {
    if (ready("setGlVersion")) app->getGlobalMgr()->getConfig()->glversion = version;
}

void qztarn::setUseDataSwapOnNode(bool use) {
    if (!ready("setUseDataSwapOnNode")) return;
    useDataSwapOnNode = use;
    app->getGlobalMgr()->getConfig()->useDataSwapOnNode = use;
}

void qztarn::setCameraDsp(int newFormat, int newOutType, const char* sceneName, int width, int height, float angle) {
    if (!ready("setCameraDsp") || !sceneName) return;
    ZuConfig* config = app->getGlobalMgr()->getConfig();
    config->getCamera(sceneName)->mirror = true;
    config->setCameraDsp(sceneName, width, height, static_cast<int>(angle));
    format = newFormat;
    outType = newOutType;
}

void qztarn::outTex(const char* name, unsigned texture) {
    app->getAppInter()->createOutputTextureNode(name, "tarnouttex", texture, 1, true, true);
}

void qztarn::createLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                              bool mirror) {
    if (!ready("createLogicScene")) return;
    app->getAppInter()->createLogicSceneFull(name, winWidth, winHeight, sceneWidth, sceneHeight);
    app->getAppInter()->setSceneMirror(name, mirror);
}

void qztarn::createLogicWin(const char* name, int fbo, int winWidth, int winHeight, int sceneWidth, int sceneHeight) {
    if (!ready("createLogicWin")) return;
    ZuAppNative* native = app->getAppInter();
    native->createLogicSceneFull(name, winWidth, winHeight, sceneWidth, sceneHeight);
    native->setSceneMirror(name, true);
    native->createRenderFboNode(name, fbo);
    native->setCameraMirror(name, true);
}

void qztarn::createLogicOffWin(const char* name, int hostFormat, int winWidth, int winHeight, int sceneWidth,
                               int sceneHeight) {
    if (!ready("createLogicOffWin")) return;
    ZuAppNative* native = app->getAppInter();
    native->createLogicSceneFull(name, winWidth, winHeight, sceneWidth, sceneHeight);
    native->setSceneMirror(name, true);
    native->createBGNode(name, hostFormat);
    if (outPixelBuffer) outTex(name, 0);
    if (useDataSwapOnNode) native->setOutSteamFormateOnTransNode(name, "tarndata", outType, true, true);
}

void qztarn::createLogicOffWinWithTexture(const char* name, int texture, int winWidth, int winHeight, int sceneWidth,
                                          int sceneHeight) {
    if (!ready("createLogicOffWinWithTexture")) return;
    ZuAppNative* native = app->getAppInter();
    native->createLogicSceneFull(name, winWidth, winHeight, sceneWidth, sceneHeight);
    native->setSceneMirror(name, true);
    native->createBGNode(name, texture, 1, sceneWidth, sceneHeight);
    native->createOutputTextureNode(name, "tarnbeautyouttex", static_cast<unsigned>(texture), 2, true, false);
    if (outPixelBuffer) outTex(name, 0);
}

void qztarn::createLogicOffWinWithTextureWithInvert(const char* name, int texture, int winWidth, int winHeight,
                                                    int sceneWidth, int sceneHeight, bool invert) {
    if (!ready("createLogicOffWinWithTextureWithInvert")) return;
    ZuAppNative* native = app->getAppInter();
    native->createLogicSceneFull(name, winWidth, winHeight, sceneWidth, sceneHeight);
    native->setSceneMirror(name, true);
    native->createBGNode(name, texture, 1, sceneWidth, sceneHeight);
    native->createOutputTextureNode(name, "tarnbeautyouttex", static_cast<unsigned>(texture), 2, true, invert);
    if (outPixelBuffer) native->createOutputTextureNode(name, "tarnouttex", 0, 1, true, invert);
}

void qztarn::destoryLogicScene(const char* name) {
    if (ready("destoryLogicScene")) app->getAppInter()->destoryLogicScene(name);
}

void qztarn::setEngineSceneMirror(const char* name, bool mirror) {
    if (ready("setEngineSceneMirror")) app->getAppInter()->setSceneMirror(name, mirror);
}

void qztarn::setCameraBgNode(const char* name, int hostFormat) {
    if (ready("setCameraBgNode")) app->getAppInter()->createBGNode(name, hostFormat);
}

void qztarn::setOutStreamNode(const char* name, int type, bool mirror, bool invert) {
    if (ready("setOutStreamNode")) app->getAppInter()->setOutSteamFormate(name, type, mirror, invert);
}

void qztarn::createOutputTextureNode(const char* name, const char*, unsigned texture, int, bool, bool) {
    // The node is always "tarnouttex" in format 1, whatever the host passes.
    if (ready("createOutputTextureNode")) outTex(name, texture);
}

void qztarn::pushDetectData(const char* name, const void* data, int size) {
    if (ready("pushDetectData")) app->getAppInter()->setDetectData(name, data, size);
}

void qztarn::pushCameraData(const char* name, const void* data, int size) {
    if (ready("pushCameraData")) app->getAppInter()->pushCameraData(name, data, size);
}

void qztarn::fetchRenderData(const char* name, void* target) {
    if (ready("fetchRenderData")) app->getAppInter()->fetchRenderData(name, target);
}

void qztarn::fetchRenderDataOnDataTRransNode(const char* scene, const char* node, void* target) {
    if (ready("fetchRenderDataOnDataTRransNode")) app->getAppInter()->fetchRenderDataOnTransNode(scene, node, target);
}

unsigned qztarn::getTexture(const char* name) { return ready("getTexture") ? app->getSceneTextureId(name) : 0; }

void qztarn::loadEffect(const char* name, const char* path) {
    if (ready("loadEffect")) app->getAppInter()->loadEffect(name, path);
}

void qztarn::loadEffect(const char* name, const char* path, int resUID) {
    if (ready("loadEffect")) app->getAppInter()->loadEffect(name, path, resUID);
}

void qztarn::loadEffect(const char* name, const char* path, int resUID, int slot) {
    if (ready("loadEffect")) app->getAppInter()->loadEffect(name, path, resUID, slot);
}

void qztarn::loadGame(const char* name, const char* gameName, const char* path, int resUID, int slot) {
    if (ready("loadGame")) app->getAppInter()->loadGame(name, gameName, path, resUID, slot);
}

void qztarn::loadEffects(const char* name, const char* path, int resUID, int slot) {
    if (ready("loadEffects")) app->getAppInter()->addEffect(name, path, resUID, slot);
}

void qztarn::clearEffect(const char* scene, const char* path, int resUID) {
    if (ready("clearEffect")) app->getAppInter()->delEffect(scene, path, resUID);
}

void qztarn::updateIntentity(const char* name, int resUID, float value) {
    if (ready("updateIntentity")) app->getAppInter()->updateIntensity(name, resUID, value);
}

void qztarn::setFaceBeautifyValue(float value, int resUID, const char* scene) {
    if (ready("setFaceBeautifyValue")) app->getAppInter()->updateFaceBeautifySmooth(scene, resUID, value);
}

void qztarn::updateSlimStrength(const char* name, int resUID, float v0, float v1, float v2, float v3) {
    if (ready("updateSlimStrength")) app->getAppInter()->updateSlimStrengthValue(name, resUID, v0, v1, v2, v3);
}

void qztarn::setFaceBeautifyAdjust(float smooth, float white, float a, float b, const char* node) {
    if (ready("setFaceBeautifyAdjust")) app->setFaceBeautifyAdjust(smooth, white, a, b, node);
}

void qztarn::setFaceBeautifyGainAdjust(float value, const char* node) {
    if (ready("setFaceBeautifyGainAdjust")) app->setFaceBeautifyGainAdjust(value, node);
}

void qztarn::setOutputTexture(unsigned texture, const char* node, int width, int height) {
    if (ready("setOutputTexture")) app->setOutputTexture(node, texture, width, height);
}

void qztarn::setBackgroundTexture(const char* node, int texture, int width, int height) {
    if (!ready("setBackgroundTexture") || !node) return;
    app->setBackgroundTexture((std::string(node) + "_background").c_str(), texture, width, height);
}

void qztarn::testDraw(const char* scene) {
    if (ready("testDraw")) app->drawFacePoint(scene);
}
