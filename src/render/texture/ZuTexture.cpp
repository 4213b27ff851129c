#include "render/texture/ZuTexture.h"

#include "basesys/ZuLiveObjects.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataMgr.h"
#include "platform/ZuLog.h"
#include "render/fbo/ZuPboObject.h"
#include "render/texture/ZuRenderTexture.h"
#include "scene/NodeIDPoolMgr.h"

#include <GLES3/gl3.h>
#include <cstring>

namespace {

NodeIDPoolMgr* idPool(ZuAppMain* app) {
    if (!app || !app->getGlobalMgr() || !app->getGlobalMgr()->getDataMgr()) return nullptr;
    return app->getGlobalMgr()->getDataMgr()->getNodeIDPool();
}

} // namespace

ZuTexture::ZuTexture(ZuAppMain* app)
    : type(GL_TEXTURE_2D), informate(GL_RGBA), dataformate(GL_RGBA), app(app) {
    lock.create();
    if (NodeIDPoolMgr* pool = idPool(app)) uid = pool->applyUID();
    live = ZuLiveObjects::enter(app, ZuLiveObjects::Kind::Texture);
}

ZuTexture::~ZuTexture() {
    if (id != -1 && !externalId) ZuRenderTexture::ReturnTexture(id);
    id = -1;
    qzSafeRelease(pbo0);
    qzSafeRelease(pbo1);
    ZuLiveObjects::leave(live, ZuLiveObjects::Kind::Texture);
    delete data;
    data = nullptr;
    if (uid >= 0) {
        if (NodeIDPoolMgr* pool = idPool(app)) pool->returnUID(uid);
    }
    lock.destroy();
}

void ZuTexture::zuinit() {
    ZuLockGuard guard(lock);
    alive = true;
}

void ZuTexture::zudestroy() {
    {
        ZuLockGuard guard(lock);
        alive = false;
        releaseDataLocked();
    }
    qzSafeRelease(pbo0);
    qzSafeRelease(pbo1);
}

void ZuTexture::setid(int value) {
    id = value;
    externalId = true;
    storedWidth = storedHeight = storedFormat = 0;
}

void ZuTexture::exchangeName(ZuTexture* other) {
    if (!other || other == this) return;
    int otherId = other->id;
    bool otherExternal = other->externalId;
    int w = other->storedWidth, h = other->storedHeight, f = other->storedFormat;
    other->id = id;
    other->externalId = externalId;
    other->storedWidth = storedWidth;
    other->storedHeight = storedHeight;
    other->storedFormat = storedFormat;
    id = otherId;
    externalId = otherExternal;
    storedWidth = w;
    storedHeight = h;
    storedFormat = f;
}

int ZuTexture::imageBytes() const {
    int bpp = ZuRenderTexture::bytesPerPixel(dataformate);
    if (bpp == 0 || width <= 0 || height <= 0) return 0;
    long long bytes = static_cast<long long>(width) * height * bpp;
    return bytes > 0x7fffffff ? 0 : static_cast<int>(bytes);
}

void ZuTexture::apply() { apply(nullptr); }

void ZuTexture::apply(void* pixels) {
    if (id >= 1) return;
    id = ZuRenderTexture::ApplyTexture2D(width, height, informate, dataformate, pixels, enableMipMaps);
    externalId = false;
    storedWidth = width;
    storedHeight = height;
    storedFormat = informate;
}

void ZuTexture::fillData(void* pixels) {
    if (id < 1) return;
    ZuRenderTexture::FillTexture2D(id, width, height, informate, dataformate, pixels, enableMipMaps);
    storedWidth = width;
    storedHeight = height;
    storedFormat = informate;
}

void ZuTexture::setData(void* pixels, int size, bool keep) {
    ZuLockGuard guard(lock);
    if (!alive) return;
    keepData = keep;
    if (size <= 0) size = imageBytes();
    if (size <= 0 || !pixels) {
        QZLOGW("texture '%s': no pixel data to store (%dx%d, format 0x%x)", name.c_str(), width,
               height, dataformate);
        return;
    }
    if (!data) data = new DataChunk();
    if (data->size < size && !data->apply(size)) {
        QZLOGE("texture '%s': cannot hold %d bytes", name.c_str(), size);
        dataBytes = 0;
        return;
    }
    std::memcpy(data->buffer, pixels, static_cast<size_t>(size));
    dataBytes = size;
    dirty = true;
    bLoad = true;
}

bool ZuTexture::hasData() {
    ZuLockGuard guard(lock);
    return data != nullptr && dataBytes > 0;
}

void ZuTexture::releaseDataLocked() {
    delete data;
    data = nullptr;
    dataBytes = 0;
}

bool ZuTexture::uploadLocked() {
    int needed = imageBytes();
    if (needed == 0 || dataBytes < needed) {
        QZLOGE("texture '%s': %d bytes of pixels for a %dx%d image that needs %d; not uploaded",
               name.c_str(), dataBytes, width, height, needed);
        return false;
    }
    if (id < 1) {
        apply(data->buffer);
    } else if (dirty) {
        if (storedWidth == width && storedHeight == height && storedFormat == informate) {
            glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(id));
            glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
            glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, informate, GL_UNSIGNED_BYTE,
                            data->buffer);
        } else {
            fillData(data->buffer);
        }
    }
    dirty = false;
    return true;
}

void ZuTexture::commit() {
    ZuLockGuard guard(lock);
    if (!data) return;
    if (!uploadLocked()) {
        // A copy that does not match the image is dropped, and the texture
        // stays unusable rather than reading past the buffer.
        releaseDataLocked();
        bLoad = false;
        return;
    }
    if (!keepData) releaseDataLocked();
    bLoad = true;
}

bool ZuTexture::getbLoad() {
    ZuLockGuard guard(lock);
    return bLoad;
}

void ZuTexture::setbLoad(bool loaded) {
    ZuLockGuard guard(lock);
    bLoad = loaded;
}
