#include "render/texture/ZuTexMgr.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateTexLoad.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexture2D.h"
#include "render/texture/ZuTextureCamera.h"
#include "render/texture/ZuTexturePList.h"
#include "render/texture/ZuTextureSet.h"

#include <GLES3/gl3.h>
#include <rapidjson/document.h>

namespace {

// Reads the int members of a rectangle object one by one: a missing x leaves
// left at 0 while w still adds to it.
void readRect(const rapidjson::Value& object, ZuRect& rect) {
    if (object.HasMember("x") && object["x"].IsInt()) rect.left = static_cast<float>(object["x"].GetInt());
    if (object.HasMember("w") && object["w"].IsInt())
        rect.right = rect.left + static_cast<float>(object["w"].GetInt());
    if (object.HasMember("y") && object["y"].IsInt()) rect.top = static_cast<float>(object["y"].GetInt());
    if (object.HasMember("h") && object["h"].IsInt())
        rect.bottom = rect.top + static_cast<float>(object["h"].GetInt());
}

} // namespace

ZuTexMgr::ZuTexMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuTexMgr::~ZuTexMgr() { clear(); }

void ZuTexMgr::init() {}

void ZuTexMgr::destroy() { clear(); }

ZuTexture* ZuTexMgr::lookup(const char* name) {
    if (!name) return nullptr;
    auto* node = textures.find(qz::string(name));
    if (!node) return nullptr;
    return node->getValue();
}

void ZuTexMgr::insert(ZuTexture* texture) { textures.insert(qz::string(texture->getname()), texture); }

ZuTexture* ZuTexMgr::getTexture(const char* path, bool create, bool mipmaps) {
    if (!path) return nullptr;
    if (ZuTexture* hit = lookup(path)) return hit;
    if (!create) return nullptr;
    return _createTexture(path, !async, mipmaps);
}

ZuTexture* ZuTexMgr::getTextureSync(const char* path, bool create, bool mipmaps) {
    if (!path) return nullptr;
    if (ZuTexture* hit = lookup(path)) return hit;
    if (!create) return nullptr;
    return _createTexture(path, true, mipmaps);
}

ZuTexture* ZuTexMgr::_createTexture(const char* path, bool sync, bool mipmaps) {
    ZuTexture* texture = new ZuTexture2D(app);
    texture->zuinit();
    texture->setname(path);
    texture->setenableMipMaps(mipmaps);
    if (sync)
        _loadTextureSync(texture, path);
    else
        _loadTextureAsync(texture, path);
    insert(texture);
    return texture;
}

void ZuTexMgr::_loadTextureSync(ZuTexture* texture, const char* path) {
    ZuOperateTexLoad* op = new ZuOperateTexLoad(app, texture, path);
    op->process(0.0f);
    op->release();
}

void ZuTexMgr::_loadTextureAsync(ZuTexture* texture, const char* path) {
    ZuOperateMgr* operates = operateMgr();
    if (!operates) {
        QZLOGW("texture '%s': no load thread, loading in place", path);
        _loadTextureSync(texture, path);
        return;
    }
    ZuOperateTexLoad* op = new ZuOperateTexLoad(app, texture, path);
    operates->pushLoadOperate(op);
    op->release();
}

ZuTexture* ZuTexMgr::createInternalTexture(int width, int height, int format) {
    return createInternalTexture(app, width, height, format);
}

ZuTexture* ZuTexMgr::createInternalTexture(ZuAppMain* app, int width, int height, int format) {
    ZuTexture* texture = new ZuTexture2D(app);
    texture->zuinit();
    texture->setwidth(width);
    texture->setheight(height);
    texture->setinformate(format);
    texture->setdataformate(format);
    texture->apply();
    texture->setbLoad(true);
    return texture;
}

ZuTexture* ZuTexMgr::createInternalTextureWithTexID(int texId, int width, int height, int format) {
    return createInternalTextureWithTexID(app, texId, width, height, format);
}

ZuTexture* ZuTexMgr::createInternalTextureWithTexID(ZuAppMain* app, int texId, int width, int height,
                                                    int format) {
    ZuTexture* texture = new ZuTexture2D(app);
    texture->zuinit();
    texture->setwidth(width);
    texture->setheight(height);
    texture->setinformate(format);
    texture->setdataformate(format);
    texture->setid(texId);
    texture->setbLoad(true);
    return texture;
}

ZuTexture* ZuTexMgr::createCameraTexture(const char* name) {
    if (!name || hasTexture(name)) return nullptr;
    ZuTexture* texture = new ZuTextureCamera(app);
    texture->zuinit();
    texture->setname(name);
    texture->setbLoad(true);
    texture->apply();
    insert(texture);
    return texture;
}

ZuTexture* ZuTexMgr::bindCameraTexture(const char* name, int texId, int width, int height) {
    if (!name || hasTexture(name)) return nullptr;
    ZuTexture* texture = new ZuTextureCamera(app);
    texture->zuinit();
    texture->setname(name);
    texture->setid(texId);
    texture->setwidth(width);
    texture->setheight(height);
    texture->setinformate(GL_RGBA);
    texture->setdataformate(GL_RGBA);
    texture->setbLoad(true);
    insert(texture);
    return texture;
}

ZuTexture* ZuTexMgr::createNullTextureWithData(const char* name, int width, int height, int dataFormat,
                                               int inFormat, void* pixels) {
    if (!name || hasTexture(name)) return nullptr;
    ZuTexture* texture = new ZuTexture2D(app);
    texture->zuinit();
    texture->setname(name);
    texture->setwidth(width);
    texture->setheight(height);
    texture->setdataformate(dataFormat);
    texture->setinformate(inFormat);
    // Without pixels the texture is storage that a stream fills later.
    if (pixels) texture->setData(pixels, 0, false);
    texture->apply();
    texture->setbLoad(true);
    insert(texture);
    return texture;
}

void ZuTexMgr::removeTexture(ZuTexture* texture) {
    if (!texture) return;
    for (qz::map<qz::string, ZuTexture*>::Iterator it(textures.getRoot()); !it.atEnd(); ++it) {
        if (it->getValue() == texture) {
            textures.remove(it.getNode());
            texture->zudestroy();
            texture->release();
            return;
        }
    }
}

void ZuTexMgr::removeTexture(const char* name) {
    if (!name) return;
    auto* node = textures.find(qz::string(name));
    if (!node) return;
    ZuTexture* texture = node->getValue();
    textures.remove(node);
    texture->zudestroy();
    texture->release();
}

void ZuTexMgr::removeUnuseTexture() {
    bool restart = true;
    while (restart) {
        restart = false;
        for (qz::map<qz::string, ZuTexture*>::Iterator it(textures.getRoot()); !it.atEnd(); ++it) {
            ZuTexture* texture = it->getValue();
            if (texture->count() != 1) continue;
            // Freeing may let go of others (a region its page): walk again.
            textures.remove(it.getNode());
            texture->zudestroy();
            texture->release();
            restart = true;
            break;
        }
    }
}

bool ZuTexMgr::hasTexture(const char* name) {
    return name && textures.find(qz::string(name)) != nullptr;
}

void ZuTexMgr::clear() {
    // Regions release their pages, so take entries out one at a time.
    while (textures.size() > 0) {
        qz::map<qz::string, ZuTexture*>::Iterator it(textures.getRoot());
        ZuTexture* texture = it->getValue();
        textures.remove(it.getNode());
        texture->zudestroy();
        texture->release();
    }
}

ZuTextureSet* ZuTexMgr::_createTextureSet(const char* key, bool sync) {
    ZuTextureSet* page = new ZuTextureSet(app);
    page->zuinit();
    page->setname(key);
    if (sync)
        _loadTextureSync(page, key);
    else
        _loadTextureAsync(page, key);
    insert(page);
    return page;
}

ZuTextureSet* ZuTexMgr::loadImgPList(const char* plistPath, const char* baseDir) {
    if (!plistPath) return nullptr;
    if (!baseDir) baseDir = "";
    ZuFileMgr* files = fileMgr();
    DataChunk chunk;
    if (!files || !files->loadFileContentStr(&chunk, plistPath)) {
        QZLOGW("atlas '%s': file not found", plistPath);
        return nullptr;
    }
    rapidjson::Document doc;
    doc.Parse(chunk.buffer);
    if (doc.HasParseError() || !doc.IsObject()) {
        QZLOGW("atlas '%s': not valid JSON", plistPath);
        return nullptr;
    }
    if (!doc.HasMember("meta") || !doc["meta"].IsObject() || !doc["meta"].HasMember("image") ||
        !doc["meta"]["image"].IsString()) {
        QZLOGW("atlas '%s': no meta.image", plistPath);
        return nullptr;
    }
    qz::string setKey = qz::string(baseDir) + doc["meta"]["image"].GetString();
    if (ZuTexture* hit = lookup(setKey.c_str())) {
        ZuTextureSet* page = dynamic_cast<ZuTextureSet*>(hit);
        if (!page) QZLOGW("atlas '%s': '%s' is cached as a plain image", plistPath, setKey.c_str());
        return page;
    }
    ZuTextureSet* page = _createTextureSet(setKey.c_str(), !async);

    qz::string base(baseDir);
    int slash = base.findLast('/');
    qz::string dir = slash >= 0 ? qz::string(base.c_str(), static_cast<uint32_t>(slash)) : qz::string("");

    if (!doc.HasMember("frames") || !doc["frames"].IsArray()) {
        QZLOGW("atlas '%s': no frames array", plistPath);
        return page;
    }
    const rapidjson::Value& frames = doc["frames"];
    for (rapidjson::SizeType i = 0; i < frames.Size(); ++i) {
        const rapidjson::Value& frame = frames[i];
        if (!frame.IsObject()) continue;
        if (!frame.HasMember("filename") || !frame["filename"].IsString()) {
            QZLOGW("atlas '%s': frame %u has no filename", plistPath, static_cast<unsigned>(i));
            continue;
        }
        qz::string key = dir + "/" + frame["filename"].GetString();
        if (hasTexture(key.c_str())) continue;
        ZuTexturePList* region = new ZuTexturePList(app);
        region->zuinit();
        region->bindTexset(page);
        region->setname(key.c_str());
        if (frame.HasMember("rotated") && frame["rotated"].IsBool()) region->rotated = frame["rotated"].GetBool();
        if (frame.HasMember("trimmed") && frame["trimmed"].IsBool()) region->trimmed = frame["trimmed"].GetBool();
        if (frame.HasMember("spriteSourceSize") && frame["spriteSourceSize"].IsObject())
            readRect(frame["spriteSourceSize"], region->srcRect);
        if (frame.HasMember("frame") && frame["frame"].IsObject()) readRect(frame["frame"], region->dstRect);
        if (frame.HasMember("sourceSize") && frame["sourceSize"].IsObject()) {
            const rapidjson::Value& size = frame["sourceSize"];
            if (size.HasMember("w") && size["w"].IsInt()) region->sourceWidth = static_cast<float>(size["w"].GetInt());
            if (size.HasMember("h") && size["h"].IsInt()) region->sourceHeight = static_cast<float>(size["h"].GetInt());
        }
        insert(region);
    }
    return page;
}
