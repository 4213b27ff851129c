#include "render/fbo/ZuFboMgr.h"

#include "render/fbo/ZuFboObject.h"
#include "render/fbo/ZuMSAAFboObject.h"
#include "render/fbo/ZuOutFboObject.h"
#include "render/fbo/ZuOutTexFboObject.h"

ZuFboMgr::ZuFboMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuFboMgr::~ZuFboMgr() {
    while (fbos.size() > 0) {
        qz::map<qz::string, ZuFboObject*>::Iterator it(fbos.getRoot());
        ZuFboObject* fbo = it->getValue();
        fbos.remove(it.getNode());
        fbo->clear();
        fbo->setOwner(nullptr);
        fbo->release();
    }
}

void ZuFboMgr::setFirstFboId() {
    if (firstFboSet) return;
    firstFboSet = true;
    firstFboId = 0;
}

ZuFboObject* ZuFboMgr::lookup(const char* name) {
    if (!name) return nullptr;
    auto* node = fbos.find(qz::string(name));
    if (!node) return nullptr;
    return node->getValue();
}

void ZuFboMgr::insert(const char* name, ZuFboObject* fbo) {
    fbo->setOwner(this);
    fbos.insert(qz::string(name), fbo);
}

ZuFboObject* ZuFboMgr::createFboTexture(const char* name, int width, int height, bool swap) {
    if (!name) return nullptr;
    if (ZuFboObject* hit = lookup(name)) return hit;
    ZuFboObject* fbo = new ZuFboObject(app);
    insert(name, fbo);
    fbo->resetFboWidth(width, height);
    if (swap) fbo->enableSwapBuffer();
    return fbo;
}

ZuFboObject* ZuFboMgr::acquireFboTexture(const char* name, int width, int height, bool swap) {
    ZuFboObject* hit = name ? lookup(name) : nullptr;
    if (!hit) return createFboTexture(name, width, height, swap);
    if (hit->getFrameWidth() != width || hit->getFrameHeight() != height) hit->resetFboWidth(width, height);
    if (swap && !hit->isSwapEnabled()) hit->enableSwapBuffer();
    return hit;
}

ZuFboObject* ZuFboMgr::createMSAAFbo(const char* name, int width, int height, bool swap) {
    if (!name) return nullptr;
    if (ZuFboObject* hit = lookup(name)) return hit;
    ZuFboObject* fbo = new ZuMSAAFboObject(app);
    insert(name, fbo);
    fbo->resetFboWidth(width, height);
    return fbo;
}

ZuFboObject* ZuFboMgr::createOutFboTexture(const char* name, int width, int height, unsigned int fboId,
                                           bool swap) {
    if (!name) return nullptr;
    if (ZuFboObject* hit = lookup(name)) return hit;
    ZuFboObject* fbo = new ZuOutFboObject(app);
    insert(name, fbo);
    fbo->resetOutFboWidth(width, height, fboId);
    return fbo;
}

ZuFboObject* ZuFboMgr::createOutTexFboTexture(const char* name, int width, int height, unsigned int texId,
                                              bool swap) {
    if (!name) return nullptr;
    if (ZuFboObject* hit = lookup(name)) return hit;
    ZuFboObject* fbo = new ZuOutTexFboObject(app);
    insert(name, fbo);
    fbo->resetOutTexFboWidth(width, height, texId);
    if (swap) fbo->enableSwapBuffer();
    return fbo;
}

ZuFboObject* ZuFboMgr::getFboTexture(const char* name) { return lookup(name); }

void ZuFboMgr::destroyFboTexture(ZuFboObject* fbo) {
    if (!fbo) return;
    for (qz::map<qz::string, ZuFboObject*>::Iterator it(fbos.getRoot()); !it.atEnd(); ++it) {
        if (it->getValue() != fbo) continue;
        fbos.remove(it.getNode());
        fbo->clear();
        fbo->setOwner(nullptr);
        fbo->release();
        return;
    }
}

void ZuFboMgr::update(float dt) {
    bool restart = true;
    while (restart) {
        restart = false;
        for (qz::map<qz::string, ZuFboObject*>::Iterator it(fbos.getRoot()); !it.atEnd(); ++it) {
            ZuFboObject* fbo = it->getValue();
            if (fbo->count() != 1) continue;
            fbos.remove(it.getNode());
            fbo->clear();
            fbo->setOwner(nullptr);
            fbo->release();
            restart = true;
            break;
        }
    }
}
