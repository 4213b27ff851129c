#include "logicsys/Animate2D/ZuKeyFrame.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

void ZuKeyFrame::initTexture(const char* path) {
    texName = path ? path : "";
    qzSafeRelease(texture);
    getTexture();
}

ZuTexture* ZuKeyFrame::getTexture() {
    if (texture || texName.empty()) return texture;
    ZuTexMgr* textures = ZuGBase::texMgrOf(app);
    if (!textures) return nullptr;
    texture = textures->getTextureSync(texName.c_str());
    if (texture) texture->retain();
    return texture;
}

void ZuKeyFrame::zudestroy() { qzSafeRelease(texture); }
