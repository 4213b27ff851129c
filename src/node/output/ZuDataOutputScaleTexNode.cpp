#include "node/output/ZuDataOutputScaleTexNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/output/ZuOutputPath.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>

ZuDataOutputScaleTexNode::ZuDataOutputScaleTexNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuDataOutputScaleTexNode");
}

void ZuDataOutputScaleTexNode::zuinit() {
    fboBegin = new ZuFboBeginRenderObject(app);
    copyObject = new ZuRenderObject(app);
    fboEnd = new ZuFboEndRenderObject(app);
    debugObject = new ZuRenderObject(app);
    debugMaterial = new ZuMaterialScreen(app);
    debugMaterial->init();
    material = new ZuMaterial(app, "screennor");
}

void ZuDataOutputScaleTexNode::zudestroy() {
    qzSafeRelease(fboBegin);
    qzSafeRelease(copyObject);
    qzSafeRelease(fboEnd);
    qzSafeRelease(debugObject);
    for (ZuMaterial** m : {&material, &debugMaterial}) {
        if (*m) (*m)->destroy();
        qzSafeRelease(*m);
    }
    qzSafeRelease(fbo);
    if (scaleTex) scaleTex->zudestroy();
    qzSafeRelease(scaleTex);
    ZuNode::zudestroy();
}

void ZuDataOutputScaleTexNode::setOutputPixel(int width, int height) {
    if (fbo) return;
    if (width <= 0 || height <= 0) {
        QZLOGW("scaled output node %s: size %d x %d refused", m_name.c_str(), width, height);
        return;
    }
    ZuFboMgr* fbos = fboMgr();
    if (!fbos) return;
    if (!scaleTex) scaleTex = ZuTexMgr::createInternalTexture(app, width, height, GL_RGBA);
    if (!scaleTex) return;
    fbo = fbos->createOutTexFboTexture("ZuDataOutputScaleTexNode_fbo1", width, height,
                                       static_cast<unsigned>(scaleTex->getid()), false);
    if (!fbo) return;
    fbo->setClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    fbo->retain();
    outWidth = width;
    outHeight = height;
}

void ZuDataOutputScaleTexNode::update(float dt) {
    ZuNode::update(dt);
    if (fboBegin) fboBegin->setFbo(fbo);
    ZuRenderData* data = ZuOutputPath::renderData(app);
    ZuScene* scene = getScene();
    if (material && copyObject && scene) {
        material->setTexcoordFlip(mirror ? 1.0f : -1.0f, invert ? -1.0f : 1.0f);
        material->setTexture0FBO(scene->getFbo(), true);
        copyObject->setMesh(data ? data->meshFull : nullptr);
        copyObject->setMaterial(material);
    }
    if (debugOn) ZuOutputPath::placeDebugThumbnail(data, debugObject, debugMaterial, fbo);
}

void ZuDataOutputScaleTexNode::render() {
    if (!isVisible()) return;
    if (!fbo || !fboBegin || !fboEnd || !copyObject) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    fboBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
    copyObject->pushCmd(scene, RS_DATA_TRANS, "inverdata");
    fboEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "datatrans_debug");
}
