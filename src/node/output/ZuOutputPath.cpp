#include "node/output/ZuOutputPath.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderMgr.h"

#include <cstdio>

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

ZuFboObject* ZuOutputPath::claimTarget(ZuAppMain* app, int uid, int width, int height, float r, float g, float b,
                                       float a) {
    ZuFboMgr* fbos = ZuGBase::fboMgrOf(app);
    if (!fbos) return nullptr;
    char name[32];
    snprintf(name, sizeof name, "%d_fbo", uid);
    ZuFboObject* target = fbos->acquireFboTexture(name, width, height, false);
    if (!target) return nullptr;
    target->enableSwapBuffer();
    target->setClearColor(r, g, b, a);
    // Output passes test no depth: a depth buffer would only be cleared on
    // every bind and swap.
    target->disableDepthBuffer();
    target->retain();
    return target;
}

void ZuOutputPath::placeDebugThumbnail(ZuRenderData* data, ZuRenderObject* object, ZuMaterial* material,
                                       ZuFboObject* target) {
    if (!object || !material) return;
    material->setTexcoordFlip(1.0f, 1.0f);
    material->setTexture0FBO(target, true);
    object->setMesh(data ? data->meshTopLeft : nullptr);
    object->setMaterial(material);
}
