#include "operate/ZuOperateTexLoad.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuTextureEvent.h"
#include "operate/ZuOperateMgr.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuPngLoader.h"
#include "render/texture/ZuTexture.h"

#include <GLES3/gl3.h>
#include <cstdlib>
#include <cstring>

ZuOperateTexLoad::ZuOperateTexLoad(ZuAppMain* app, ZuTexture* texture, const char* path)
    : ZuOpLoadBase(app), texture(texture), path(path) {
    if (texture) texture->retain();
}

ZuOperateTexLoad::~ZuOperateTexLoad() { qzSafeRelease(texture); }

bool ZuOperateTexLoad::isDecodable(const char* path) {
    if (!path) return false;
    const char* dot = std::strrchr(path, '.');
    return dot && std::strcmp(dot, ".png") == 0;
}

void ZuOperateTexLoad::process(float delta) {
    // Second visit, on the render thread: only the reference goes.
    if (decoded) return;
    decoded = true;
    decode();

    ZuOperateMgr* operates = operateMgr();
    if (operates && operates->isLoadThread()) operates->pushOperate(this);
}

void ZuOperateTexLoad::decode() {
    if (!texture) return;
    if (!isDecodable(path.c_str())) {
        QZLOGW("texture '%s': only .png images are loaded", path.c_str());
        return;
    }
    ZuPngLoader loader(app);
    unsigned char* pixels = nullptr;
    if (!loader.loadData(path.c_str(), &pixels)) return;

    texture->settype(GL_TEXTURE_2D);
    texture->setwidth(loader.getWidth());
    texture->setheight(loader.getHeight());
    texture->setinformate(loader.getGlFormat());
    texture->setdataformate(loader.getGlFormat());
    texture->setData(pixels, loader.getDataSize(), false);
    std::free(pixels);

    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (events) {
        ZuTextureEvent* event = new ZuTextureEvent("");
        event->textureUid = texture->getuid();
        if (!events->pushEvent(event)) event->release();
    }
}
