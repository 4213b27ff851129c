#include "operate/ZuOperateSceneAccess.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "scene/ZuSceneMgr.h"

namespace zuop {

static ZuGlobalMgr* global(ZuAppMain* app) { return app ? app->getGlobalMgr() : nullptr; }

ZuSceneMgr* sceneMgr(ZuAppMain* app) { return global(app) ? global(app)->getSceneMgr() : nullptr; }
ZuNodeMgr* nodeMgr(ZuAppMain* app) { return global(app) ? global(app)->getNodeMgr() : nullptr; }
ZuEventMgr* eventMgr(ZuAppMain* app) { return global(app) ? global(app)->getEventMgr() : nullptr; }

ZuScene* scene(ZuAppMain* app, const char* name) {
    ZuSceneMgr* mgr = sceneMgr(app);
    return mgr ? mgr->getScene(name) : nullptr;
}

} // namespace zuop
