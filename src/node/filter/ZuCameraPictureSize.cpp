#include "node/filter/ZuCameraPictureSize.h"

#include "basesys/Camera.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"

#include <utility>

bool ZuCameraPictureSize::of(ZuAppMain* app, const char* cameraName, int* width, int* height) {
    *width = *height = 1;
    ZuConfig* config = ZuGBase::configOf(app);
    Camera* camera = config ? config->getCamera(cameraName) : nullptr;
    if (!camera) return false;
    int w = camera->width, h = camera->height;
    if (camera->angle == 90 || camera->angle == 270) std::swap(w, h);
    if (w <= 0 || h <= 0) return false;
    *width = w;
    *height = h;
    return true;
}
