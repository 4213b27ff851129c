#include "basesys/ZuGBase.h"
#include "basesys/ZuAppNative.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuCameraImageFormat.h"
#include "parse/SpineHeadRes.h"
#include "data/ZuDataGenCamera.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDataSwap.h"
#include "data/ZuGifMgr.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuActionLocation.h"
#include "event/ZuEventMgr.h"
#include "event/ZuScaleEvent.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "node/output/ZuDataOutputTexNode.h"
#include "node/output/ZuDataTransNode.h"
#include "operate/ZuOperateCreateNode.h"
#include "operate/ZuOperateCreateOutSteam.h"
#include "operate/ZuOperateCreateOutSteamDataSwap.h"
#include "operate/ZuOperateCreateOutputTexNode.h"
#include "operate/ZuOperateCreateOutputTexScaleNode.h"
#include "operate/ZuOperateCreateOutLogicScene.h"
#include "operate/ZuOperateCreateOutTexLogicScene.h"
#include "operate/ZuOperateCreateRenderFbo.h"
#include "operate/ZuOperateDelEft.h"
#include "operate/ZuOperateDeleteLogicScene.h"
#include "operate/ZuOperateFaceBuffingWhite.h"
#include "operate/ZuOperateIntensity.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateParse.h"
#include "operate/ZuOperateQueue.h"
#include "operate/ZuOperateSaveEft.h"
#include "operate/ZuOperateSetCameraFormate.h"
#include "operate/ZuOperateSetCameraTexId.h"
#include "operate/ZuOperateSetSceneMirror.h"
#include "operate/ZuOperateSetSeparationCameraFormate.h"
#include "operate/ZuOperateSetSeparationCameraTexId.h"
#include "operate/ZuOperateSlimStrength.h"
#include "operate/ZuSceneVisible.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeMgr.h"

#include <cstdio>

int ZuAppNative::frameSizeFor(const char* sceneName, int* width, int* height, int* format) const {
    if (!app || app->getState() != ZU_ENG_STATE_RUNNING) return -1;
    ZuGlobalMgr* managers = app->getGlobalMgr();
    if (!managers || !managers->getDataMgr() || !managers->getConfig()) return -1;
    ZuConfig* config = managers->getConfig();
    Camera* camera = config->getCamera(sceneName);
    *width = camera->width;
    *height = camera->height;
    *format = config->cameraImageFormat;
    return cameraFrameSize(*format, *width, *height);
}

void ZuAppNative::pushCameraData(const char* sceneName, const void* data) {
    int width, height, format;
    int size = frameSizeFor(sceneName, &width, &height, &format);
    if (size < 0) return;
    if (ZuDataGenCamera* source = app->getGlobalMgr()->getDataMgr()->getDataGenCamera(sceneName))
        source->writeData(width, height, format, data, size);
}

void ZuAppNative::pushCameraData(const char* sceneName, const void* data, int length) {
    int width, height, format;
    int size = frameSizeFor(sceneName, &width, &height, &format);
    if (size < 0) return;
    if (length != size) {
        printf("%s\n", kWrongFrameLength);
        fflush(stdout);
        QZLOGW("camera frame for scene %s refused: %d bytes, but %d x %d in camera format %s (%d) is %d bytes",
               sceneName ? sceneName : "", length, width, height, cameraFormatName(format), format, size);
        return;
    }
    if (ZuDataGenCamera* source = app->getGlobalMgr()->getDataMgr()->getDataGenCamera(sceneName))
        source->writeData(width, height, format, data, size);
}

void ZuAppNative::pushCameraData(const char* sceneName, const void* data, ZuDataSwap* swap) {
    int width, height, format;
    int size = frameSizeFor(sceneName, &width, &height, &format);
    if (size < 0) return;
    if (ZuDataGenCamera* source = app->getGlobalMgr()->getDataMgr()->getDataGenCamera(sceneName))
        source->shaderSwapData(width, height, format, swap, size);
}

void ZuAppNative::setAssetsManager(AAssetManager* manager) {
    if (ZuGBase::fileMgrOf(app))
        app->getGlobalMgr()->getFileMgr()->setAssetsManager(manager);
}

namespace {

const char* stateName(const ZuAppMain* app) {
    if (!app) return "gone";
    switch (app->getState()) {
    case ZU_ENG_STATE_STOPPED: return "stopped";
    case ZU_ENG_STATE_RUNNING: return "running";
    case ZU_ENG_STATE_STOPPING: return "stopping";
    default: return "in an unknown state";
    }
}

} // namespace

bool ZuAppNative::canPush(const char* call) const {
    bool running = app && app->getState() == ZU_ENG_STATE_RUNNING;
    QZ_REQUIRE_OR(running && app->getGlobalMgr() && app->getGlobalMgr()->getOperateMgr(), false,
                  "%s ignored: the engine is %s", call, stateName(app));
    return true;
}

bool ZuAppNative::canPushEffect(const char* call) const {
    bool taking = app && app->getState() != ZU_ENG_STATE_STOPPING;
    QZ_REQUIRE_OR(taking && app->getGlobalMgr() && app->getGlobalMgr()->getOperateMgr(), false,
                  "%s ignored: the engine is %s", call, stateName(app));
    return true;
}

void ZuAppNative::push(ZuOperateBase* op) {
    app->getGlobalMgr()->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppNative::createLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight) {
    if (canPush())
        push(new ZuOperateCreateLogicScene(app, name, winWidth, winHeight, sceneWidth, sceneHeight,
                                           SCALE_MODE_CENTER));
}

void ZuAppNative::createLogicSceneFull(const char* name, int winWidth, int winHeight, int sceneWidth,
                                       int sceneHeight) {
    if (canPush())
        push(new ZuOperateCreateLogicScene(app, name, winWidth, winHeight, sceneWidth, sceneHeight, SCALE_MODE_FULL));
}

void ZuAppNative::createInputFBOLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth,
                                           int sceneHeight, unsigned fboId) {
    if (canPush())
        push(new ZuOperateCreateOutLogicScene(app, name, winWidth, winHeight, sceneWidth, sceneHeight, fboId,
                                              SCALE_MODE_FULL));
}

void ZuAppNative::createOutTexLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth,
                                         int sceneHeight, unsigned textureId) {
    if (canPush())
        push(new ZuOperateCreateOutTexLogicScene(app, name, winWidth, winHeight, sceneWidth, sceneHeight, textureId));
}

void ZuAppNative::destoryLogicScene(const char* name) {
    if (canPush()) push(new ZuOperateDeleteLogicScene(app, name));
}

void ZuAppNative::setSceneVisible(const char* name, bool visible) {
    if (!canPush()) return;
    push(new ZuSceneVisible(app, name, visible));
    ZuSceneVisible::apply(app, name, visible);
}

void ZuAppNative::setSceneMirror(const char* name, bool mirror) {
    if (canPushEffect()) push(new ZuOperateSetSceneMirror(app, name, mirror));
}

void ZuAppNative::setCameraMirror(const char* name, bool mirror) {
    if (!app || app->getState() == ZU_ENG_STATE_STOPPING || !app->getGlobalMgr()) return;
    if (ZuConfig* config = app->getGlobalMgr()->getConfig()) config->getCamera(name)->mirror = mirror;
}

void ZuAppNative::setCameraDsp(const char* name, int frameWidth, int frameHeight, int frameAngle) {
    if (!app || app->getState() == ZU_ENG_STATE_STOPPING || !app->getGlobalMgr()) return;
    QZ_REQUIRE(name && frameWidth > 0 && frameHeight > 0, "setCameraDsp refused: %s, %d x %d",
               name ? name : "(no scene)", frameWidth, frameHeight);
    if (ZuConfig* config = app->getGlobalMgr()->getConfig()) config->setCameraDsp(name, frameWidth, frameHeight, frameAngle);
}

void ZuAppNative::createBGNode(const char* name, int hostFormat) {
    if (canPush()) push(new ZuOperateSetCameraFormate(app, name, hostFormat));
}

void ZuAppNative::createBGNode(const char* name, int textureId, int pixelFormat, int width, int height) {
    if (canPush())
        push(new ZuOperateSetCameraTexId(app, name, textureId, static_cast<PIXELFORMATE>(pixelFormat), width, height));
}

void ZuAppNative::createSeparationBGNode(const char* name, int hostFormat) {
    if (canPush()) push(new ZuOperateSetSeparationCameraFormate(app, name, hostFormat));
}

void ZuAppNative::createSeparationNorBGNode(const char* name, int textureId, int width, int height) {
    if (canPush()) push(new ZuOperateSetSeparationCameraTexId(app, name, textureId, width, height));
}

void ZuAppNative::createRenderFboNode(const char* name, int fboId) {
    if (canPush())
        push(new ZuOperateCreateRenderFbo(app, name, "ZuInputFboRenderNode", "ZuInputFboRenderNode", fboId));
}

void ZuAppNative::setCameraParam(const char* name, int, int, int, int hostFormat) {
    if (canPush()) push(new ZuOperateSetCameraFormate(app, name, hostFormat));
}

void ZuAppNative::delEffect(const char* name, const char*, int resUID) {
    if (canPushEffect()) push(new ZuOperateDelEft(app, resUID, name));
}

void ZuAppNative::delEffectInstenImmediately(const char* name, const char*, int resUID) {
    if (!canPushEffect()) return;
    ZuOperateDelEft* op = new ZuOperateDelEft(app, resUID, name);
    op->process(0.0f);
    op->release();
}

void ZuAppNative::saveEffect(const char* name, const char* path, int resUID) {
    if (canPushEffect()) push(new ZuOperateSaveEft(app, resUID, name, path));
}

void ZuAppNative::updateIntensity(const char* name, int resUID, float value) {
    if (canPush()) push(new ZuOperateIntensity(app, name, resUID, value));
}

void ZuAppNative::updateSlimStrength(const char* name, int resUID, float value) {
    if (canPush()) push(new ZuOperateSlimStrength(app, name, resUID, value));
}

void ZuAppNative::updateSlimStrengthValue(const char* name, int resUID, float v0, float v1, float v2, float v3) {
    // No state test: the host may set strengths before the start.
    if (ZuGBase::operateMgrOf(app))
        push(new ZuOperateSlimStrength(app, name, resUID, v0, v1, v2, v3));
}

void ZuAppNative::updateFaceBeautifySmooth(const char* name, int resUID, float value) {
    updateFaceBeautify(name, resUID, value, value);
}

void ZuAppNative::updateFaceBeautify(const char* name, int resUID, float smooth, float white) {
    if (canPush()) push(new ZuOperateFaceBuffingWhite(app, name, resUID, smooth, white));
}

void ZuAppNative::debugFacePt(const char* name) {
    if (canPushEffect()) push(new ZuOperateCreateNode(app, "facept", "ZuFacePointNode", name));
}

void ZuAppNative::setActionLocation(int id, float x, float y) {
    if (!app || app->getState() != ZU_ENG_STATE_RUNNING || !app->getGlobalMgr()) return;
    ZuEventMgr* events = app->getGlobalMgr()->getEventMgr();
    if (!events) return;
    ZuActionLocation* event = new ZuActionLocation("");
    event->resUID = id;
    event->x = x;
    event->y = y;
    if (!events->pushEvent(event)) event->release();
}

void ZuAppNative::setScale(const char* name, int id, float value) {
    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (!events) return;
    ZuScaleEvent* event = new ZuScaleEvent(name ? name : "");
    event->id = id;
    event->value = value;
    if (!events->pushEvent(event)) event->release();
}

ZuDataTransNode* ZuAppNative::transNode(const char* nodeName, bool needRunning) const {
    if (!app || !nodeName || !app->getGlobalMgr()) return nullptr;
    if (needRunning && app->getState() != ZU_ENG_STATE_RUNNING) return nullptr;
    ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
    return nodes ? dynamic_cast<ZuDataTransNode*>(nodes->getNode(nodeName)) : nullptr;
}

static qz::string dataOutName(const char* name) {
    qz::string node(name ? name : "");
    node += "_dataout";
    return node;
}

// Reads only a frame that has arrived, and exactly the swap's size.
static void fetchFrom(ZuDataTransNode* node, void* target) {
    ZuDataSwap* swap = node ? node->getOutDataSwap() : nullptr;
    if (!swap || !target || !swap->isWrite()) return;
    int size = swap->getSize();
    swap->fetchData(target, &size);
}

void ZuAppNative::fetchRenderData(const char* name, void* target) {
    fetchFrom(transNode(dataOutName(name).c_str(), true), target);
}

void ZuAppNative::fetchRenderData(const char* name, void*, ZuDataSwap* swap) {
    if (ZuDataTransNode* node = transNode(dataOutName(name).c_str(), true)) node->setShareSwap(swap);
}

void ZuAppNative::fetchRenderDataOnTransNode(const char*, const char* nodeName, void* target) {
    fetchFrom(transNode(nodeName, false), target);
}

void ZuAppNative::openOutRenderData(const char* name) {
    if (ZuDataTransNode* node = transNode(dataOutName(name).c_str(), true)) node->setintercept(false);
}

void ZuAppNative::closeOutRenderData(const char* name) {
    if (ZuDataTransNode* node = transNode(dataOutName(name).c_str(), true)) node->setintercept(true);
}

void ZuAppNative::setOutSteamInterceptState(const char* nodeName, bool intercept) {
    if (ZuDataTransNode* node = transNode(nodeName, false)) node->setintercept(intercept);
}

void ZuAppNative::setOutSteamFormate(const char* name, int type, bool mirror, bool invert) {
    if (canPush()) push(new ZuOperateCreateOutSteam(app, name, static_cast<OUTSTEAMTYPE>(type), mirror, invert));
}

void ZuAppNative::setOutSteamFormateOnTransNode(const char* name, const char* nodeName, int type, bool mirror,
                                                bool invert) {
    if (canPush())
        push(new ZuOperateCreateOutSteamDataSwap(app, name, nodeName, static_cast<OUTSTEAMTYPE>(type), mirror,
                                                 invert));
}

void ZuAppNative::setOutSteamFormateOnTransNode(const char* name, const char* nodeName, int type, bool mirror,
                                                int width, int height, bool invert) {
    if (canPush())
        push(new ZuOperateCreateOutSteamDataSwap(app, name, nodeName, static_cast<OUTSTEAMTYPE>(type), mirror,
                                                 invert, width, height, true));
}

void ZuAppNative::createOutputTextureNode(const char* name, const char* nodeName, unsigned textureId,
                                          int pixelFormat, bool mirror, bool invert) {
    if (canPush())
        push(new ZuOperateCreateOutputTexNode(app, name, nodeName, textureId, static_cast<PIXELFORMATE>(pixelFormat),
                                              mirror, invert));
}

void ZuAppNative::createOutputTextureScaleNode(const char* name, const char* nodeName, int pixelFormat, bool mirror,
                                               bool invert, int width, int height) {
    if (canPush())
        push(new ZuOperateCreateOutputTexScaleNode(app, name, nodeName, static_cast<PIXELFORMATE>(pixelFormat),
                                                   mirror, invert, width, height));
}

void ZuAppNative::startRecordGif(const char* name, const char* path, int width, int height) {
    ZuGlobalMgr* managers = ZuGBase::managersOf(app);
    if (canPush() && managers->getGifMgr()) managers->getGifMgr()->startRecordGif(name, path, width, height);
}

void ZuAppNative::stopRecordGif() {
    ZuGlobalMgr* managers = ZuGBase::managersOf(app);
    if (managers && managers->getGifMgr()) managers->getGifMgr()->stopRecordGif();
}

void ZuAppNative::setOutData(const char* nodeName, bool mirror, bool invert) {
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(app);
    // Checked, unlike the name alone: a node of another class is left alone.
    ZuDataOutputTexNode* node = nodes ? dynamic_cast<ZuDataOutputTexNode*>(nodes->getNode(nodeName)) : nullptr;
    if (!node) return;
    node->setOutMirror(mirror);
    node->setOutInvert(invert);
}

namespace {
// The effect family's one default id.
const int kDefaultResUID = 250;
} // namespace

void ZuAppNative::loadEffect(const char* name, const char* path) { loadEffect(name, path, kDefaultResUID, 0); }

void ZuAppNative::loadEffect(const char* name, const char* path, int resUID) { loadEffect(name, path, resUID, 0); }

void ZuAppNative::loadEffect(const char* name, const char* path, int resUID, int slot) {
    if (canPushEffect()) push(new ZuOperateParse(app, resUID, name, path, slot));
}

void ZuAppNative::loadEffect(const char* name, const char* path, int resUID, int slot,
                             qz::array<SpineHeadRes>* heads) {
    if (!canPushEffect()) {
        if (heads) heads->clear();
        return;
    }
    ZuOperateParse* op = new ZuOperateParse(app, resUID, name, path, slot);
    op->takeHeads(heads);
    push(op);
}

void ZuAppNative::loadGame(const char* name, const char* gameName, const char* path, int resUID, int slot) {
    if (canPushEffect()) push(new ZuOperateParse(app, resUID, name, path, slot, gameName));
}

void ZuAppNative::addEffect(const char* name, const char* path, int resUID, int slot) {
    if (!canPushEffect()) return;
    ZuOperateQueue* queue = app->getGlobalMgr()->getOperateQueue();
    if (!queue) return;
    ZuOperateParse* op = new ZuOperateParse(app, resUID, name, path, slot);
    queue->addOperate(op);
    op->release();
}

void ZuAppNative::clearEffectQueue(const char*, int) {
    if (!app || app->getState() == ZU_ENG_STATE_STOPPING || !app->getGlobalMgr()) return;
    if (ZuOperateQueue* queue = app->getGlobalMgr()->getOperateQueue()) queue->clearOperate();
}

namespace {
// Guard of the face-tracking methods: running, with a detect manager.
ZuDetectMgr* runningDetectMgr(ZuAppMain* app) {
    if (!app || app->getState() != ZU_ENG_STATE_RUNNING || !app->getGlobalMgr()) return nullptr;
    return app->getGlobalMgr()->getDetectMgr();
}
} // namespace

void ZuAppNative::setDetectType(DETECTTYPE type) {
    if (runningDetectMgr(app) && app->getGlobalMgr()->getOperateMgr())
        push(new ZuOperateChangeDetectDataType(app, type));
}

void ZuAppNative::setDetectData(const char* name, const void* data, int size) {
    if (ZuDetectMgr* detectMgr = runningDetectMgr(app)) detectMgr->pushData(name, data, size);
}
