#include "node/filter/ZuFilterOutter.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

ZuFilterOutter::ZuFilterOutter(ZuAppMain* app) : ZuNode(app) { setType("ZuFilterOutter"); }

void ZuFilterOutter::zuinit() {
    ZuNode::zuinit();
    ZuRenderObject* object = new ZuRenderObject(app);
    ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
    if (renderMgr) object->setMesh(renderMgr->getRenderData()->meshFull);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
    swapObject = new ZuFboSwapRenderObject(app);
}

ZuFilterOutter::~ZuFilterOutter() { releaseOwned(); }

void ZuFilterOutter::zudestroy() {
    ZuNode::zudestroy();
    releaseOwned();
}

void ZuFilterOutter::releaseOwned() {
    qzSafeRelease(swapObject);
    qzSafeRelease(material);
}

void ZuFilterOutter::setMaterial(ZuMaterial* value) {
    if (value != material) {
        qzAssignRetained(material, value);
    }
    if (getRenderObject()) getRenderObject()->setMaterial(material);
}

void ZuFilterOutter::update(float dt) {
    ZuNode::update(dt);
    if (!material) return;
    // The material animates first; the pass's own settings then win.
    material->update(dt);
    ZuScene* scene = getActiveScene();
    material->setTexture0FBO(scene ? scene->getFbo() : nullptr, false);
    material->setTexcoordFlip(1.0f, 1.0f);
}

void ZuFilterOutter::render() {
    if (!isVisible()) return;
    ZuRenderScene* renderScene = getActiveRenderScene();
    if (!renderScene || !getRenderObject() || !swapObject || !material) return;
    swapObject->pushCmd(renderScene, streamType, "ZuFilterOutter_swap");
    getRenderObject()->pushCmd(renderScene, streamType, "ZuFilterOutter");
}
