#include "node/filter/ZuMaterialToneCurves.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuScene.h"

void ZuMaterialToneCurves::update(float dt) {
    ZuGMaterial::update(dt);
    ZuScene* scene = app && app->getGlobalParam() ? app->getGlobalParam()->activeScene : nullptr;
    setTexture0FBO(scene ? scene->getFbo() : nullptr, false);
    ZuTexMgr* textures = ZuGBase::texMgrOf(app);
    ZuTexture* curves = textures ? textures->getTexture("Chuxia.asv", false) : nullptr;
    // Held in the slot, not just named: the cache frees images nobody holds,
    // and the refresh then waits for the image to be loaded and committed.
    if (curves) setTexture1(curves);
}
