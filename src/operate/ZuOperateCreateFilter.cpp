#include "operate/ZuOperateCreateFilter.h"

#include "node/filter/ZuFilterOutter.h"
#include "node/filter/ZuMaterialToneCurves.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateCreateFilter::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!nodes || !nodes->getCreator()) return;
    ZuNode* node = nodes->getCreator()->createNode(type.c_str(), scene.c_str(), name.c_str());
    if (!node) return;
    if (ZuScene* target = zuop::scene(app, scene.c_str())) target->addChild(node);
    if (auto* outer = dynamic_cast<ZuFilterOutter*>(node)) {
        auto* curves = new ZuMaterialToneCurves(app);
        curves->init();
        outer->setMaterial(curves);
        curves->release();
    }
}
