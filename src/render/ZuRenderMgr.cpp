#include "render/ZuRenderMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/mesh/ZuRenderData.h"
#include "render/command/ZuRenderScene.h"

ZuRenderMgr::~ZuRenderMgr() { destroy(); }

ZuRenderData* ZuRenderMgr::renderDataOf(ZuAppMain* app) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    return global && global->getRenderMgr() ? global->getRenderMgr()->getRenderData() : nullptr;
}

void ZuRenderMgr::init() {
    if (renderData) return;
    renderData = new ZuRenderData();
    renderData->init();
}

void ZuRenderMgr::destroy() {
    if (renderData) {
        renderData->destroy();
        qzSafeRelease(renderData);
    }
    clear();
}

ZuRenderScene* ZuRenderMgr::createRenderScene(const char* name) {
    if (!name) return nullptr;
    if (ZuRenderScene* existing = getRenderScene(name)) return existing;
    ZuRenderScene* scene = new ZuRenderScene(name);
    scenes.insert(qz::string(name), scene);
    return scene;
}

ZuRenderScene* ZuRenderMgr::getRenderScene(const char* name) const {
    if (!name) return nullptr;
    auto* entry = scenes.find(qz::string(name));
    return entry ? entry->getValue() : nullptr;
}

void ZuRenderMgr::destroyRenderScene(const char* name) {
    if (!name) return;
    auto* entry = scenes.find(qz::string(name));
    if (!entry) return;
    ZuRenderScene* scene = entry->getValue();
    scenes.remove(entry);
    scene->release();
}

void ZuRenderMgr::destroyRenderScene(ZuRenderScene* scene) {
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) {
        if (it->getValue() == scene) {
            scenes.remove(it.getNode());
            scene->release();
            return;
        }
    }
}

void ZuRenderMgr::replay(ZuRenderScene* scene) {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param) param->activeRenderScene = scene;
    scene->direct_render();
    if (param) param->activeRenderScene = nullptr;
}

bool ZuRenderMgr::renderScene(const char* name) {
    if (scenes.size() == 0) return false;
    if (!name || !*name) {
        for (auto it = scenes.getIterator(); !it.atEnd(); ++it) replay(it->getValue());
        return true;
    }
    if (ZuRenderScene* scene = getRenderScene(name)) replay(scene);
    return true;
}

void ZuRenderMgr::clear() {
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) it->getValue()->release();
    scenes.clear();
}
