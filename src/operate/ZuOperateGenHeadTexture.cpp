#include "operate/ZuOperateGenHeadTexture.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

void ZuOperateGenHeadTexture::process(float) {
    ZuTexMgr* texMgr = ZuGBase::texMgrOf(app);
    if (!texMgr || !pixels) return;
    if (width <= 0 || height <= 0 || static_cast<long long>(width) * height > (1 << 26)) {
        QZLOGW("head picture '%s': size %d x %d refused", name.c_str(), width, height);
        return;
    }
    ZuTexture* texture = texMgr->getTexture(name.c_str(), true, false);
    if (!texture) return;
    texture->setinformate(GL_RGBA);
    texture->setdataformate(GL_RGBA);
    texture->setwidth(width);
    texture->setheight(height);
    texture->setData(pixels, width * height * 4, false);
    // Kept beyond the frames in which no node holds it: a package may ask
    // for the picture long after the host handed it in.
    texture->retain();
}
