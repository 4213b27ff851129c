#include "node/output/ZuDataOutputTexNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/output/ZuOutputPath.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginNoclearRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <cstdio>

ZuDataOutputTexNode::ZuDataOutputTexNode(ZuAppMain* app) : ZuNode(app) { setType("ZuDataOutputTexNode"); }

void ZuDataOutputTexNode::zuinit() {
    fboBegin = new ZuFboBeginNoclearRenderObject(app);
    copyObject = new ZuRenderObject(app);
    fboEnd = new ZuFboEndRenderObject(app);
    // The host's texture may enclose nothing worth wiping on the way out.
    fboEnd->setClear(false);
    debugObject = new ZuRenderObject(app);
    debugMaterial = new ZuMaterialScreen(app);
    debugMaterial->init();
    chooseMaterial();
}

void ZuDataOutputTexNode::zudestroy() {
    qzSafeRelease(fboBegin);
    qzSafeRelease(copyObject);
    qzSafeRelease(fboEnd);
    qzSafeRelease(debugObject);
    for (ZuMaterial** m : {&material, &debugMaterial}) {
        if (*m) (*m)->destroy();
        qzSafeRelease(*m);
    }
    qzSafeRelease(fbo);
    ZuNode::zudestroy();
}

void ZuDataOutputTexNode::chooseMaterial() {
    const char* key = texType == PF_BGRA ? "screennorbgra" : "screennor";
    if (material) {
        material->AsynloadShader(app, key);
        return;
    }
    material = new ZuMaterial(app, key);
}

void ZuDataOutputTexNode::setOutTextureType(PIXELFORMATE type) {
    if (type != PF_BGRA && type != PF_RGBA) {
        QZLOGW("output texture node %s: pixel format %d refused", m_name.c_str(), static_cast<int>(type));
        return;
    }
    if (type == texType && material) return;
    texType = type;
    chooseMaterial();
}

void ZuDataOutputTexNode::setOutputTexture(unsigned id, int width, int height) {
    if (fbo && id == texId) return;
    if (width <= 0 || height <= 0) {
        QZLOGW("output texture node %s: size %d x %d refused", m_name.c_str(), width, height);
        return;
    }
    ZuFboMgr* fbos = fboMgr();
    if (!fbos) return;
    if (fbo) {
        fbos->destroyFboTexture(fbo);
        qzSafeRelease(fbo);
    }
    char name[48];
    snprintf(name, sizeof name, "%d_fbo_%u", m_uid, id);
    fbo = fbos->createOutTexFboTexture(name, width, height, id, false);
    if (!fbo) return;
    fbo->setClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    fbo->retain();
    outWidth = width;
    outHeight = height;
    texId = id;
}

void ZuDataOutputTexNode::update(float dt) {
    ZuNode::update(dt);
    if (fboBegin) fboBegin->setFbo(fbo);
    ZuRenderData* data = ZuOutputPath::renderData(app);
    ZuScene* scene = getScene();
    if (material && copyObject && scene) {
        Camera* camera = ZuOutputPath::camera(app, m_sceneName.c_str());
        material->setTexcoordFlip(mirror ? 1.0f : -1.0f, invert ? -1.0f : 1.0f);
        material->setTexture0FBO(scene->getFbo(), true);
        copyObject->setMesh(ZuOutputPath::meshFollowingAngle(data, camera ? camera->angle : 0));
        copyObject->setMaterial(material);
    }
    if (debugOn) ZuOutputPath::placeDebugThumbnail(data, debugObject, debugMaterial, fbo);
}

void ZuDataOutputTexNode::render() {
    if (!isVisible()) return;
    if (!fbo || !fboBegin || !fboEnd || !copyObject) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    fboBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
    copyObject->pushCmd(scene, RS_DATA_TRANS, "inverdata");
    fboEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "datatrans_debug");
}
