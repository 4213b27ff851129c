#include "node/output/ZuDataTransNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataSwap.h"
#include "node/output/ZuOutputPath.h"
#include "node/output/ZuRGB2YUVMaterial.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/command/ZuRenderCmdReadPixel.h"
#include "render/fbo/ZuFboBeginNoclearRenderObject.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/object/ZuReadPixelRenderObject.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "render/object/ZuRowsRenderObject.h"
#include "scene/ZuScene.h"

#include <cstdio>

namespace {

void dropMaterial(ZuMaterial*& material) {
    qzSafeRelease(material);
}

} // namespace

ZuDataTransNode::ZuDataTransNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuDataTransNode");
    outSwap = new ZuDataSwap();
}

void ZuDataTransNode::zuinit() {
    fboBegin = new ZuFboBeginRenderObject(app);
    copyObject = new ZuRenderObject(app);
    swapObject = new ZuFboSwapRenderObject(app);
    convertObject = new ZuRowsRenderObject(app);
    sceneBegin = new ZuFboBeginNoclearRenderObject(app);
    sceneEnd = new ZuFboEndRenderObject(app);
    sceneEnd->setClear(false);
    readObject = new ZuReadPixelRenderObject(app);
    fboEnd = new ZuFboEndRenderObject(app);
    debugObject = new ZuRenderObject(app);
    copyMaterial = new ZuMaterial(app, "screennor");
    debugMaterial = new ZuMaterialScreen(app);
    debugMaterial->init();
}

void ZuDataTransNode::zudestroy() {
    qzSafeRelease(fboBegin);
    qzSafeRelease(copyObject);
    qzSafeRelease(swapObject);
    qzSafeRelease(convertObject);
    qzSafeRelease(sceneBegin);
    qzSafeRelease(sceneEnd);
    qzSafeRelease(readObject);
    qzSafeRelease(fboEnd);
    qzSafeRelease(debugObject);
    dropMaterial(copyMaterial);
    dropMaterial(convertMaterial);
    dropMaterial(debugMaterial);
    qzSafeRelease(fbo);
    qzSafeRelease(outSwap);
    qzSafeRelease(shareSwap);
    ZuNode::zudestroy();
}

void ZuDataTransNode::setShareSwap(ZuDataSwap* swap) {
    qzAssignRetained(shareSwap, swap);
}

void ZuDataTransNode::setOutFormate(OUTSTEAMTYPE value, int width, int height) {
    if (fbo) return;
    if (width <= 0 || height <= 0) {
        QZLOGW("output node %s: size %d x %d refused", m_name.c_str(), width, height);
        return;
    }
    fbo = ZuOutputPath::claimTarget(app, m_uid, width, height, 0.0f, 0.0f, 1.0f, 1.0f);
    if (!fbo) return;
    format = value;
    outWidth = width;
    outHeight = height;

    dropMaterial(convertMaterial);
    if (zuIsPackedRgbFormat(format)) {
        // The read command always fetches RGBA: BGRA is made by the draw.
        convertMaterial = new ZuMaterial(app, format == OST_BGRA ? "bgra" : "screennor");
        convertMaterial->setTexcoordFlip(1.0f, 1.0f);
        // The copy converts as it orients: one draw makes the output.
        if (copyMaterial && format == OST_BGRA) copyMaterial->AsynloadShader(app, "bgra");
        if (outSwap) outSwap->aplly(width * height * 4);
    } else {
        ZuRGB2YUVMaterial* yuv = new ZuRGB2YUVMaterial(app, format);
        yuv->setTex(static_cast<float>(width), static_cast<float>(height));
        convertMaterial = yuv;
        if (outSwap) outSwap->aplly(static_cast<int>(width * height * 1.5));
    }
}

ZuDataTransNode::Road ZuDataTransNode::chooseRoad(ZuFboObject* sceneFbo, bool unturned) const {
    // The debug thumbnail shows the own target, so it keeps the full road.
    bool exact = unturned && !debugOn && sceneFbo && sceneFbo->getMainTex() && sceneFbo->getFboID() &&
                 sceneFbo->getFrameWidth() == outWidth && sceneFbo->getFrameHeight() == outHeight;
    if (zuIsPackedRgbFormat(format)) return exact && format == OST_RGBA ? Road::ReadScene : Road::OneDraw;
    return exact ? Road::ConvertScene : Road::OrientThenConvert;
}

void ZuDataTransNode::update(float dt) {
    ZuNode::update(dt);
    if (fboBegin) fboBegin->setFbo(fbo);
    ZuRenderData* data = ZuOutputPath::renderData(app);
    ZuScene* scene = getScene();
    ZuFboObject* sceneFbo = scene ? scene->getFbo() : nullptr;
    Camera* camera = ZuOutputPath::camera(app, m_sceneName.c_str());
    ZuRenderMesh* orient = ZuOutputPath::meshUndoingAngle(data, camera ? camera->angle : 0);
    road = chooseRoad(sceneFbo, mirror && !invert && data && orient == data->meshFull);
    if (sceneBegin) sceneBegin->setFbo(road == Road::ReadScene ? sceneFbo : nullptr);

    if (copyMaterial && copyObject && scene) {
        copyMaterial->setTexcoordFlip(mirror ? 1.0f : -1.0f, invert ? -1.0f : 1.0f);
        copyMaterial->setTexture0FBO(sceneFbo, true);
        copyObject->setMesh(orient);
        copyObject->setMaterial(copyMaterial);
    }
    if (convertMaterial && convertObject) {
        // The oriented picture sits in the second texture after the swap;
        // a scene that needs no orienting is converted where it is.
        convertMaterial->setTexcoordFlip(1.0f, 1.0f);
        if (road == Road::ConvertScene)
            convertMaterial->setTexture0FBO(sceneFbo, true);
        else
            convertMaterial->setTexture0FBO(fbo, false);
        convertObject->setMesh(data ? data->meshFull : nullptr);
        convertObject->setMaterial(convertMaterial);
        // The rows read back, and the one partial row a plain read may add.
        int rows = ZuRenderCmdReadPixel::readRows(format, outHeight) + 1;
        convertObject->setRows(rows < outHeight ? rows : outHeight);
    }
    if (readObject) {
        readObject->setSceneName(m_sceneName.c_str());
        readObject->setNodeName(m_name.c_str());
        readObject->setParam(outWidth, outHeight, format);
        readObject->setDataSwap(shareSwap ? shareSwap : outSwap);
        // The two pixel buffers trade roles every frame.
        readObject->setFlip(pboFlip);
        pboFlip = !pboFlip;
    }
    if (debugOn) ZuOutputPath::placeDebugThumbnail(data, debugObject, debugMaterial, fbo);
}

void ZuDataTransNode::render() {
    if (!isVisible()) return;
    // Without a format there is no target: a read would fetch whatever is bound.
    if (intercept || !fbo || !fboBegin || !fboEnd) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    switch (road) {
    case Road::ReadScene:
        sceneBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
        readObject->pushCmd(scene, RS_DATA_TRANS, "readdata");
        sceneEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
        break;
    case Road::OneDraw:
        fboBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
        copyObject->pushCmd(scene, RS_DATA_TRANS, "inverdata");
        readObject->pushCmd(scene, RS_DATA_TRANS, "readdata");
        fboEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
        break;
    case Road::ConvertScene:
        fboBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
        convertObject->pushCmd(scene, RS_DATA_TRANS, "rgb2yuv");
        readObject->pushCmd(scene, RS_DATA_TRANS, "readdata");
        fboEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
        break;
    case Road::OrientThenConvert:
        fboBegin->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_beign");
        copyObject->pushCmd(scene, RS_DATA_TRANS, "inverdata");
        swapObject->pushCmd(scene, RS_DATA_TRANS, "swap");
        convertObject->pushCmd(scene, RS_DATA_TRANS, "rgb2yuv");
        readObject->pushCmd(scene, RS_DATA_TRANS, "readdata");
        fboEnd->pushCmd(scene, RS_DATA_TRANS, "fbo_dt_end");
        break;
    }
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "datatrans_debug");
}
