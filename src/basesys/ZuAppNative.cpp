#include "basesys/ZuAppNative.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenCamera.h"
#include "data/ZuDataMgr.h"

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
    if (app && app->getGlobalMgr() && app->getGlobalMgr()->getFileMgr())
        app->getGlobalMgr()->getFileMgr()->setAssetsManager(manager);
}
