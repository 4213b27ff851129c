#include "basesys/ZuAppMainWrap.h"

#include "basesys/ZuAppNative.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPetActionEvent.h"
#include "event/ZuPlayActionEvent.h"
#include "node/beauty/ZuFaceBeautifyNode.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "node/output/ZuDataOutputTexNode.h"
#include "operate/ZuOperateCreateNode.h"
#include "operate/ZuOperateMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

#include <typeinfo>

void ZuAppMainWrap::init() {
    if (globalMgr) return;
    ZuAppMain::init();
    auto* config = new ZuConfig(this);
    globalMgr->setConfig(config);
    config->init();
    config->release();
    appInter->setDetectType(static_cast<DETECTTYPE>(initialDetectType()));
}

void ZuAppMainWrap::setFaceBeautyType(int type) {
    ZuConfig* config = getGlobalMgr() ? getGlobalMgr()->getConfig() : nullptr;
    if (config) config->faceBeautyType = type;
}

void ZuAppMainWrap::setFaceBeautifyAdjust(float smooth, float white, float, float, const char* nodeName) {
    if (auto* smoother = exactNode<ZuFaceBuffingWhiteNode>(nodeName)) {
        smoother->updateSmooth(smooth);
        smoother->updateWhite(white);
    }
}

void ZuAppMainWrap::setFaceBeautifyGainAdjust(float value, const char* nodeName) {
    if (auto* beauty = exactNode<ZuFaceBeautifyNode>(nodeName)) beauty->updateGainAdjust(value);
}

void ZuAppMainWrap::setOutputTexture(const char* nodeName, unsigned texture, int width, int height) {
    if (auto* output = exactNode<ZuDataOutputTexNode>(nodeName)) output->setOutputTexture(texture, width, height);
}

void ZuAppMainWrap::setBackgroundTexture(const char* nodeName, int texture, int, int) {
    if (auto* background = exactNode<ZuBackGroundExtTextureNode>(nodeName)) background->updateTextureId(texture);
}

unsigned ZuAppMainWrap::getSceneTextureId(const char* sceneName) {
    ZuSceneMgr* scenes = ZuGBase::sceneMgrOf(this);
    ZuScene* scene = scenes && sceneName ? scenes->getScene(sceneName) : nullptr;
    ZuFboObject* fbo = scene ? scene->getFbo() : nullptr;
    ZuTexture* texture = fbo ? fbo->getMainTex() : nullptr;
    return texture ? static_cast<unsigned>(texture->getid()) : 0;
}

void ZuAppMainWrap::createNode(const char* sceneName, const char* nodeName, const char* type) {
    ZuOperateMgr* operations = ZuGBase::operateMgrOf(this);
    QZ_REQUIRE(operations && state == ZU_ENG_STATE_RUNNING, "createNode: the engine is not running");
    QZ_REQUIRE(sceneName && nodeName && type, "createNode: scene, node name or type missing");
    auto* op = new ZuOperateCreateNode(this, nodeName, type, sceneName);
    operations->pushOperate(op);
    op->release();
}

void ZuAppMainWrap::createTest(const char* sceneName) { createNode(sceneName, "test", "ZuFacePointNode"); }

void ZuAppMainWrap::drawFacePoint(const char* sceneName) { createNode(sceneName, "FacePoint", "ZuFacePointNode"); }

void ZuAppMainWrap::hideFacePoint(const char*) {
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(this);
    ZuNode* node = nodes ? nodes->getNode("FacePoint") : nullptr;
    if (node) nodes->delNode(node->getuid());
}

void ZuAppMainWrap::updatePetModelAction(const char* sceneName, const char* action) {
    ZuEventMgr* events = ZuGBase::eventMgrOf(this);
    QZ_REQUIRE(events && sceneName && action, "updatePetModelAction: no engine, scene or action");
    auto* event = new ZuPetActionEvent(sceneName);
    event->actionName = action;
    if (!events->pushEvent(event)) event->release();
}

void ZuAppMainWrap::playAction(const char* sceneName, int, const char* action, bool loop, int count) {
    ZuEventMgr* events = ZuGBase::eventMgrOf(this);
    QZ_REQUIRE(events && sceneName && action, "playAction: no engine, scene or action");
    auto* event = new ZuPlayActionEvent(sceneName);
    event->actionName = action;
    event->loop = loop;
    event->count = static_cast<float>(count);
    if (!events->pushEvent(event)) event->release();
}
