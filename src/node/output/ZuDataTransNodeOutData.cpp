#include "node/output/ZuDataTransNodeOutData.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataSwapCache.h"
#include "node/output/ZuOutputPath.h"
#include "node/output/ZuRGB2YUVMaterial.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/object/ZuReadPixelRenderObjDataOut.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <cstdio>

ZuDataTransNodeOutData::ZuDataTransNodeOutData(ZuAppMain* app) : ZuNode(app) { setType("ZuDataTransNodeOutData"); }

void ZuDataTransNodeOutData::zuinit() {
    fboBegin = new ZuFboBeginRenderObject(app);
    fboEnd = new ZuFboEndRenderObject(app);
    angleObject = new ZuRenderObject(app);
    swapObject = new ZuFboSwapRenderObject(app);
    debugObject = new ZuRenderObject(app);
    angleMaterial = new ZuMaterialScreen(app);
    angleMaterial->init();
    debugMaterial = new ZuMaterialScreen(app);
    debugMaterial->init();
}

void ZuDataTransNodeOutData::zudestroy() {
    qzSafeRelease(fboBegin);
    qzSafeRelease(fboEnd);
    qzSafeRelease(angleObject);
    qzSafeRelease(swapObject);
    qzSafeRelease(readObject);
    qzSafeRelease(debugObject);
    for (ZuMaterial** m : {&convertMaterial, &angleMaterial, &debugMaterial}) {
        if (*m) (*m)->destroy();
        qzSafeRelease(*m);
    }
    qzSafeRelease(fbo);
    qzSafeRelease(cache);
    ZuNode::zudestroy();
}

void ZuDataTransNodeOutData::setOutFormate(OUTSTEAMTYPE value, int width, int height) {
    if (fbo) return;
    if (width <= 0 || height <= 0) {
        QZLOGW("ring output node %s: size %d x %d refused", m_name.c_str(), width, height);
        return;
    }
    fbo = ZuOutputPath::claimTarget(app, m_uid, width, height, 0.0f, 0.0f, 0.0f, 0.0f);
    if (!fbo) return;
    format = value;
    outWidth = width;
    outHeight = height;
    if (format == OST_RGBA) {
        convertMaterial = new ZuMaterial(app, "screennor");
        convertMaterial->setTexcoordFlip(1.0f, 1.0f);
    } else {
        ZuRGB2YUVMaterial* yuv = new ZuRGB2YUVMaterial(app, format);
        yuv->setTex(static_cast<float>(width), static_cast<float>(height));
        convertMaterial = yuv;
    }
}

void ZuDataTransNodeOutData::setDataCache(ZuDataSwapCache* ring) {
    qzAssignRetained(cache, ring);
    if (!readObject) readObject = new ZuReadPixelRenderObjDataOut(app);
    readObject->setCache(cache);
}

void ZuDataTransNodeOutData::update(float dt) {
    ZuNode::update(dt);
    if (fboBegin) fboBegin->setFbo(fbo);
    ZuRenderData* data = ZuOutputPath::renderData(app);
    ZuScene* scene = getScene();
    if (angleMaterial && angleObject && scene) {
        Camera* camera = ZuOutputPath::camera(app, m_sceneName.c_str());
        angleMaterial->setTexcoordFlip(mirror ? 1.0f : -1.0f, 1.0f);
        angleMaterial->setTexture0FBO(scene->getFbo(), true);
        angleObject->setMesh(ZuOutputPath::meshFollowingAngle(data, camera ? camera->angle : 0));
        angleObject->setMaterial(angleMaterial);
    }
    if (readObject && convertMaterial) {
        // The read command draws the conversion from the oriented picture, then reads.
        convertMaterial->setTexcoordFlip(1.0f, 1.0f);
        convertMaterial->setTexture0FBO(fbo, false);
        readObject->setParam(m_sceneName.c_str(), outWidth, outHeight, format);
        readObject->setMesh(data ? data->meshFull : nullptr);
        readObject->setMaterial(convertMaterial);
    }
    if (debugOn) ZuOutputPath::placeDebugThumbnail(data, debugObject, debugMaterial, fbo);
}

void ZuDataTransNodeOutData::render() {
    if (!isVisible()) return;
    if (!fbo || !fboBegin || !fboEnd || !readObject || !convertMaterial || !angleObject || !cache) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    fboBegin->pushCmd(scene, RS_DATA_TRANS, "datatrans_out_begin");
    angleObject->pushCmd(scene, RS_DATA_TRANS, "datatrans_out_angle_adapter");
    swapObject->pushCmd(scene, RS_DATA_TRANS, "datatrans_out_angle_swap");
    readObject->pushCmd(scene, RS_DATA_TRANS, "datatrans_out_readpixel");
    fboEnd->pushCmd(scene, RS_DATA_TRANS, "datatrans_out_end");
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "datatrans_out_debug");
}
