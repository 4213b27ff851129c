#include "node/filter/ZuFilterMultiMaterial.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/material/ZuMaterial.h"
#include "render/object/ZuMultMaterialRenderObject.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"

ZuFilterMultiMaterial::ZuFilterMultiMaterial(ZuAppMain* app) : ZuNode(app) { setType("ZuFilterMultiMaterial"); }

ZuFilterMultiMaterial::~ZuFilterMultiMaterial() { clearMaterial(); }

void ZuFilterMultiMaterial::zuinit() {
    ZuNode::zuinit();
    auto* object = new ZuMultMaterialRenderObject(app);
    ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
    if (renderMgr) object->setMesh(renderMgr->getRenderData()->meshFull);
    setRenderObject(object);
    object->release();
}

void ZuFilterMultiMaterial::zudestroy() {
    clearMaterial();
    ZuNode::zudestroy();
}

void ZuFilterMultiMaterial::pushMaterial(ZuMaterial* material) {
    if (!material) return;
    material->retain();
    materials.push_back(material);
    if (auto* object = dynamic_cast<ZuMultMaterialRenderObject*>(getRenderObject())) object->pushMaterial(material);
}

void ZuFilterMultiMaterial::clearMaterial() {
    for (uint32_t i = 0; i < materials.size(); ++i) materials[i]->release();
    materials.clear();
    if (auto* object = dynamic_cast<ZuMultMaterialRenderObject*>(getRenderObject())) object->clearMaterials();
}
