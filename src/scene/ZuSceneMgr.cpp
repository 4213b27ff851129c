#include "scene/ZuSceneMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "person/ZuPersonSys.h"
#include "scene/ZuScene.h"

ZuSceneMgr::~ZuSceneMgr() { destroy(); }

void ZuSceneMgr::destroy() {
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) {
        ZuScene* scene = it->getValue();
        scene->scenedestroy();
        scene->release();
    }
    scenes.clear();
}

ZuScene* ZuSceneMgr::adopt(ZuScene* scene) {
    scenes.insert(scene->getname(), scene);
    // Every kind of scene gets its four persons here.
    ZuPersonSys* persons = personSys();
    if (persons) persons->createPersonByScene(scene->getname().c_str());
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && !param->activeScene) scene->active();
    return scene;
}

ZuScene* ZuSceneMgr::createScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight) {
    if (!name) return nullptr;
    if (ZuScene* existing = getScene(name)) return existing;
    ZuScene* scene = new ZuScene(app);
    scene->sceneinit(name, winWidth, winHeight, sceneWidth, sceneHeight);
    return adopt(scene);
}

ZuScene* ZuSceneMgr::createOutFBOScene(const char* name, int winWidth, int winHeight, int sceneWidth,
                                       int sceneHeight, unsigned fboId) {
    if (!name) return nullptr;
    if (ZuScene* existing = getScene(name)) return existing;
    ZuScene* scene = new ZuScene(app);
    scene->sceneinitwithoutfbo(name, winWidth, winHeight, sceneWidth, sceneHeight, fboId);
    return adopt(scene);
}

ZuScene* ZuSceneMgr::createOutTexScene(const char* name, int winWidth, int winHeight, int sceneWidth,
                                       int sceneHeight, unsigned textureId) {
    if (!name) return nullptr;
    if (ZuScene* existing = getScene(name)) return existing;
    ZuScene* scene = new ZuScene(app);
    scene->sceneinitwithouttexfbo(name, winWidth, winHeight, sceneWidth, sceneHeight, textureId);
    return adopt(scene);
}

bool ZuSceneMgr::destroyScene(const char* name) {
    if (!name) return false;
    auto* entry = scenes.find(name);
    if (!entry) return false;
    ZuScene* scene = entry->getValue();
    scenes.remove(entry);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeScene == scene) param->activeScene = nullptr;
    // The persons go after the tree, whose nodes may still unhook from them;
    // the name is copied since it may be the scene's own.
    const qz::string sceneName(name);
    scene->scenedestroy();
    scene->release();
    ZuPersonSys* persons = personSys();
    if (persons) persons->delPersonByScene(sceneName.c_str());
    return true;
}

ZuScene* ZuSceneMgr::getScene(const char* name) const {
    if (!name) return nullptr;
    auto* entry = scenes.find(name);
    return entry ? entry->getValue() : nullptr;
}

void ZuSceneMgr::setActiveCamera(ZuRenderCamera* camera) {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param) param->activeCamera = camera;
}

void ZuSceneMgr::update(float delta) {
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) {
        ZuScene* scene = it->getValue();
        scene->active();
        scene->deep_update(delta);
        scene->unactive();
    }
}
