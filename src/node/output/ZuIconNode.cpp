#include "node/output/ZuIconNode.h"

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
#include "scene/ZuScene.h"

#include <cstdio>

ZuIconNode::ZuIconNode(ZuAppMain* app) : ZuNode(app) { setType("ZuIconNode"); }

void ZuIconNode::zuinit() {
    fboBegin = new ZuFboBeginRenderObject(app);
    fboEnd = new ZuFboEndRenderObject(app);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    debugObject = new ZuRenderObject(app);
    debugMaterial = new ZuMaterialScreen(app);
    debugMaterial->init();
}

void ZuIconNode::zudestroy() {
    qzSafeRelease(fboBegin);
    qzSafeRelease(fboEnd);
    qzSafeRelease(debugObject);
    for (ZuMaterial** m : {&material, &debugMaterial}) {
        if (*m) (*m)->destroy();
        qzSafeRelease(*m);
    }
    qzSafeRelease(fbo);
    ZuNode::zudestroy();
}

void ZuIconNode::setIconSize(int width, int height) {
    if (width <= 0 || height <= 0) {
        QZLOGW("icon node %s: size %d x %d refused", m_name.c_str(), width, height);
        return;
    }
    ZuFboMgr* fbos = fboMgr();
    if (!fbo && fbos) {
        // Names are cut at nine characters, as the pool has always seen them.
        char name[10];
        snprintf(name, sizeof name, "%d_fbo", m_uid);
        fbo = fbos->acquireFboTexture(name, width, height, false);
        if (!fbo) return;
        fbo->setClearColor(0.0f, 0.0f, 0.0f, 0.0f);
        fbo->retain();
    }
    iconWidth = width;
    iconHeight = height;
    qzSafeRelease(material);
    material = new ZuMaterial(app, "screennor");
    material->setTexcoordFlip(1.0f, 1.0f);
}

void ZuIconNode::update(float dt) {
    ZuNode::update(dt);
    if (fboBegin) fboBegin->setFbo(fbo);
    ZuRenderData* data = ZuOutputPath::renderData(app);
    ZuScene* scene = getScene();
    ZuRenderObject* object = getRenderObject();
    if (material && object && scene) {
        material->setTexture0FBO(scene->getFbo(), true);
        object->setMesh(data ? data->meshFull : nullptr);
        object->setMaterial(material);
    }
    if (debugOn && debugObject && debugMaterial) {
        debugMaterial->setTexcoordFlip(1.0f, 1.0f);
        debugMaterial->setTexture0FBO(fbo, true);
        debugObject->setMesh(data ? data->meshBottomRight : nullptr);
        debugObject->setMaterial(debugMaterial);
    }
}

void ZuIconNode::render() {
    if (!isVisible()) return;
    ZuRenderObject* object = getRenderObject();
    if (!fbo || !fboBegin || !fboEnd || !object || !material) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    fboBegin->pushCmd(scene, RS_ICON, "icon_begin");
    object->pushCmd(scene, RS_ICON, "icon_trans");
    fboEnd->pushCmd(scene, RS_ICON, "icon_end");
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "icon_debug");
}
