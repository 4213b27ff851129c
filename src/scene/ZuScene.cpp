#include "scene/ZuScene.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/ZuRenderCamera.h"
#include "render/ZuRenderMgr.h"
#include "render/command/ZuRenderScene.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuVesperObj.h"

#include <algorithm>

ZuScene::ZuScene(ZuAppMain* app) : ZuNode(app) {
    setType("ZuScene");
    adapt = new ZuAdaptObj(app);
    vesper = new ZuVesperObj(app);
}

ZuScene::~ZuScene() {
    // scenedestroy() is the normal way out; this catches a scene released without it.
    scenedestroy();
}

int ZuScene::portraitWidth() const { return std::min(sceneWidth, sceneHeight); }
int ZuScene::portraitHeight() const { return std::max(sceneWidth, sceneHeight); }

void ZuScene::begin(const char* name, int newWinWidth, int newWinHeight, int newSceneWidth, int newSceneHeight,
                    bool outer) {
    ZuNode::zuinit();
    outerTarget = outer;
    setname(name ? name : "");
    setSceneName(name ? name : "");
    winWidth = newWinWidth;
    winHeight = newWinHeight;
    sceneWidth = newSceneWidth;
    sceneHeight = newSceneHeight;
}

void ZuScene::finish() {
    if (adapt) adapt->init(winWidth, winHeight, portraitWidth(), portraitHeight());
    if (renderScene) return;
    ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
    if (!renderMgr) return;
    renderScene = renderMgr->createRenderScene(m_name.c_str());
    if (!renderScene) return;
    renderScene->retain();
    renderScene->setWinSize(winWidth, winHeight);
}

void ZuScene::sceneinit(const char* name, int ww, int wh, int sw, int sh) {
    begin(name, ww, wh, sw, sh, false);
    if (vesper) vesper->init(m_name.c_str(), portraitWidth(), portraitHeight(), m_uid);
    finish();
}

void ZuScene::sceneinitmsaa(const char* name, int ww, int wh, int sw, int sh) {
    begin(name, ww, wh, sw, sh, false);
    if (vesper) vesper->initmsaa(m_name.c_str(), portraitWidth(), portraitHeight(), m_uid);
    finish();
}

void ZuScene::sceneinitwithoutfbo(const char* name, int ww, int wh, int sw, int sh, unsigned fboId) {
    begin(name, ww, wh, sw, sh, true);
    if (vesper) vesper->initwithoutfbo(m_name.c_str(), portraitWidth(), portraitHeight(), m_uid, fboId);
    finish();
}

void ZuScene::sceneinitwithouttexfbo(const char* name, int ww, int wh, int sw, int sh, unsigned textureId) {
    begin(name, ww, wh, sw, sh, true);
    if (vesper) vesper->initwithouttexfbo(m_name.c_str(), portraitWidth(), portraitHeight(), m_uid, textureId);
    finish();
}

void ZuScene::scenedestroy() {
    ZuNode::zudestroy();
    if (adapt) {
        adapt->destroy();
        qzSafeRelease(adapt);
    }
    if (vesper) {
        vesper->destroy();
        qzSafeRelease(vesper);
    }
    if (renderScene) {
        ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
        if (renderMgr) renderMgr->destroyRenderScene(renderScene);
        qzSafeRelease(renderScene);
    }
    clearChild();
}

void ZuScene::active() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (!param) return;
    param->activeScene = this;
    if (param->activeCamera && adapt) param->activeCamera->setMirrorMode(adapt->getMirror());
}

void ZuScene::unactive() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeScene == this) param->activeScene = nullptr;
}

void ZuScene::update(float delta) {
    if (!renderScene) return;
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && vesper) param->activeCamera = vesper->getCamera();
    ZuNode::update(delta);
    if (vesper) vesper->update(delta);
    if (adapt) adapt->update(delta, this);
}

void ZuScene::render() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (!param || !param->activeScene || !isVisible()) return;
    ZuRenderScene* target = param->activeScene->getRenderScene();
    if (!target) return;
    if (vesper) vesper->render(target);
    if (adapt) adapt->render(target);
}

void ZuScene::setScaleMode(int mode) {
    if (adapt) adapt->setScaleMode(mode);
}

void ZuScene::setMirror(bool mirror) {
    if (adapt) adapt->setMirror(mirror);
}

bool ZuScene::getMirror() const { return adapt ? adapt->getMirror() : true; }

ZuFboObject* ZuScene::getFbo() const { return vesper ? vesper->getFbo() : nullptr; }
