#include "scene/ZuVesperObj.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/ZuRenderCamera.h"

#include <cstdio>

ZuVesperObj::~ZuVesperObj() { destroy(); }

void ZuVesperObj::targetName(char* out, int size, int uid) { snprintf(out, size, "%d_vesper", uid); }

bool ZuVesperObj::prepare(int w, int h, bool setActiveCamera) {
    width = w;
    height = h;
    if (!beginObject) beginObject = new ZuFboBeginRenderObject(app);
    if (!endObject) endObject = new ZuFboEndRenderObject(app);
    if (!camera) camera = new ZuRenderCamera();
    camera->resetRenderCamera(static_cast<float>(w), static_cast<float>(h));
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (setActiveCamera && param && !param->activeCamera) param->activeCamera = camera;
    return fbo == nullptr;
}

void ZuVesperObj::adopt(ZuFboObject* target, float r, float g, float b, float a) {
    if (!target) return;
    target->retain();
    target->setClearColor(r, g, b, a);
    fbo = target;
}

void ZuVesperObj::init(const char* name, int w, int h, int uid) {
    (void)name;
    ZuFboMgr* mgr = fboMgr();
    if (!prepare(w, h, true) || !mgr) return;
    char target[32];
    targetName(target, sizeof target, uid);
    ZuFboObject* made = mgr->acquireFboTexture(target, w, h, false);
    if (made) made->enableSwapBuffer();
    adopt(made, 0, 0, 0, 0);
}

void ZuVesperObj::initmsaa(const char* name, int w, int h, int uid) {
    (void)name;
    ZuFboMgr* mgr = fboMgr();
    if (!prepare(w, h, true) || !mgr) return;
    char target[32];
    targetName(target, sizeof target, uid);
    adopt(mgr->createMSAAFbo(target, w, h, false), 1, 0, 0, 1);
}

void ZuVesperObj::initwithoutfbo(const char* name, int w, int h, int uid, unsigned fboId) {
    (void)name;
    ZuFboMgr* mgr = fboMgr();
    if (!prepare(w, h, true) || !mgr) return;
    char target[32];
    targetName(target, sizeof target, uid);
    adopt(mgr->createOutFboTexture(target, w, h, fboId, false), 0, 0, 0, 0);
}

void ZuVesperObj::initwithouttexfbo(const char* name, int w, int h, int uid, unsigned textureId) {
    (void)name;
    ZuFboMgr* mgr = fboMgr();
    if (!prepare(w, h, false) || !mgr) return;
    char target[32];
    targetName(target, sizeof target, uid);
    ZuFboObject* made = mgr->createOutTexFboTexture(target, w, h, textureId, false);
    if (made) made->enableSwapBuffer();
    adopt(made, 0, 0, 0, 0);
}

void ZuVesperObj::destroy() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && camera && param->activeCamera == camera) param->activeCamera = nullptr;
    qzSafeRelease(beginObject);
    qzSafeRelease(endObject);
    qzSafeRelease(fbo);
    delete camera;
    camera = nullptr;
}

void ZuVesperObj::update(float) {
    if (beginObject) beginObject->setFbo(fbo);
}

void ZuVesperObj::render(ZuRenderScene* scene) {
    if (!scene || !beginObject || !endObject) return;
    beginObject->pushCmd(scene, RS_SCENE_BEGIN, "vesper_begin");
    endObject->pushCmd(scene, RS_SCENE_END, "vesper_end");
}
