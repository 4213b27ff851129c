#include "node/ZuOutputPath.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/ZuRenderData.h"
#include "render/ZuRenderMgr.h"

ZuRenderData* ZuOutputPath::renderData(ZuAppMain* app) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuRenderMgr* render = global ? global->getRenderMgr() : nullptr;
    return render ? render->getRenderData() : nullptr;
}

Camera* ZuOutputPath::camera(ZuAppMain* app, const char* sceneName) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuConfig* config = global ? global->getConfig() : nullptr;
    return config ? config->getCamera(sceneName ? sceneName : "") : nullptr;
}

ZuRenderMesh* ZuOutputPath::meshUndoingAngle(ZuRenderData* data, int angle) {
    if (!data) return nullptr;
    switch (angle) {
    case 90: return data->meshRot270;
    case 180: return data->meshRot180;
    case 270: return data->meshRot90;
    default: return data->meshFull;
    }
}

ZuRenderMesh* ZuOutputPath::meshFollowingAngle(ZuRenderData* data, int angle) {
    if (!data) return nullptr;
    switch (angle) {
    case 90: return data->meshRot90;
    case 180: return data->meshRot180;
    case 270: return data->meshRot270;
    default: return data->meshFull;
    }
}
