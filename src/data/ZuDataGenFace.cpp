#include "data/ZuDataGenFace.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

ZuDataGenFace::ZuDataGenFace(ZuAppMain* app, int generatorType) : app(app) {
    dataType = generatorType;
    genLock.create();
}

ZuDataGenFace::~ZuDataGenFace() { genLock.destroy(); }

void ZuDataGenFace::_notice(float delta) {
    ZuLockGuard guard(genLock);
    ZuDataGenerate::_notice(delta);
}

ZuDetectWire::Frame ZuDataGenFace::cameraFrame(const char* sceneName, bool windowSize) const {
    ZuDetectWire::Frame frame;
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    if (!managers || !managers->getConfig()) return frame;
    const Camera* camera = managers->getConfig()->getCamera(sceneName);
    frame.width = static_cast<float>(camera->width);
    frame.height = static_cast<float>(camera->height);
    frame.rotation = static_cast<float>(camera->angle);
    if (windowSize && managers->getSceneMgr()) {
        if (ZuScene* scene = managers->getSceneMgr()->getScene(sceneName ? sceneName : "")) {
            frame.width = static_cast<float>(scene->getWinWidth());
            frame.height = static_cast<float>(scene->getWinHeight());
        }
    }
    return frame;
}
