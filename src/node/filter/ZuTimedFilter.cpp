#include "node/filter/ZuTimedFilter.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/ZuLogicMgr.h"
#include "node/filter/ZuFilterOutter.h"
#include "scene/ZuSceneMgr.h"

void ZuTimedFilter::show(ZuAppMain* app, const char* scene, RENDERSTREAMTYPE stream, ZuMaterial* material,
                         float seconds) {
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    if (!managers || !managers->getSceneMgr() || !managers->getSceneMgr()->getScene(scene)) return;
    if (!managers->getLogicMgr()) return;
    // Made directly, not through the registry: it belongs to no package.
    auto* filter = new ZuFilterOutter(app);
    filter->zuinit();
    filter->setRStreamType(stream);
    filter->setMaterial(material);
    managers->getLogicMgr()->addEftPackNode(seconds, filter, scene);
    filter->release();
}
