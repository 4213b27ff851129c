#include "node/filter/ZuFilter.h"

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

ZuFilter::ZuFilter(ZuAppMain* app) : ZuNode(app) { setType("ZuFilter"); }

ZuFilter::~ZuFilter() { qzSafeRelease(swapObject); }

void ZuFilter::zuinit() {
    ZuNode::zuinit();
    swapObject = new ZuFboSwapRenderObject(app);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    listenEvent();
}

void ZuFilter::zudestroy() {
    unlistenEvent();
    ZuNode::zudestroy();
    qzSafeRelease(swapObject);
}

void ZuFilter::update(float dt) {
    ZuNode::update(dt);
    ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
    if (getRenderObject() && renderMgr) getRenderObject()->setMesh(renderMgr->getRenderData()->meshFull);
}

void ZuFilter::render() {
    if (!isVisible()) return;  // a hidden pass records nothing, not even its swap
    pushPass(RS_FILTER, "ZuFilter_swap", "ZuFilter");
}

ZuFboObject* ZuFilter::currentSceneFbo() const {
    ZuScene* scene = getActiveScene();
    return scene ? scene->getFbo() : nullptr;
}

void ZuFilter::bindPicture(ZuMaterial* material) {
    if (!material || !getRenderObject()) return;
    // The swap has moved the picture to the second texture by the time
    // this draw replays.
    material->setTexture0FBO(currentSceneFbo(), false);
    material->setTexcoordFlip(1.0f, 1.0f);
    getRenderObject()->setMaterial(material);
}

void ZuFilter::pushPass(RENDERSTREAMTYPE stream, const char* swapLabel, const char* drawLabel) {
    ZuRenderScene* renderScene = getActiveRenderScene();
    if (!renderScene || !getRenderObject() || !swapObject) return;
    swapObject->pushCmd(renderScene, stream, swapLabel);
    getRenderObject()->pushCmd(renderScene, stream, drawLabel);
}
