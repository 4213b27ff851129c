#include "node/ZuOutputPath.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/ZuRenderData.h"
#include "render/ZuRenderMgr.h"

ZuRenderData* ZuOutputPath::renderData(ZuAppMain* app) { return ZuRenderMgr::renderDataOf(app); }

Camera* ZuOutputPath::camera(ZuAppMain* app, const char* sceneName) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuConfig* config = global ? global->getConfig() : nullptr;
    return config ? config->getCamera(sceneName ? sceneName : "") : nullptr;
}

// Unlisted angles draw unturned.
ZuRenderMesh* ZuOutputPath::meshUndoingAngle(ZuRenderData* data, int angle) {
    if (!data) return nullptr;
    ZuRenderMesh* mesh = data->meshUndoingAngle(angle);
    return mesh ? mesh : data->meshFull;
}

ZuRenderMesh* ZuOutputPath::meshFollowingAngle(ZuRenderData* data, int angle) {
    if (!data) return nullptr;
    ZuRenderMesh* mesh = data->meshFollowingAngle(angle);
    return mesh ? mesh : data->meshFull;
}
