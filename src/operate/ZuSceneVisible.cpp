#include "operate/ZuSceneVisible.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateSceneAccess.h"
#include "render/ZuRenderMgr.h"
#include "render/command/ZuRenderScene.h"
#include "scene/ZuScene.h"

void ZuSceneVisible::process(float) { apply(app, name.c_str(), visible); }

void ZuSceneVisible::apply(ZuAppMain* app, const char* name, bool visible) {
    ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
    if (ZuRenderScene* renderScene = renderMgr ? renderMgr->getRenderScene(name) : nullptr)
        renderScene->setVisible(visible);
    if (ZuScene* scene = zuop::scene(app, name)) scene->setVisible(visible);
}
