#include "render/fbo/ZuPboMgr.h"

#include "render/fbo/ZuPboObject.h"

ZuPboMgr::ZuPboMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuPboMgr::~ZuPboMgr() {
    while (pbos.size() > 0) {
        qz::map<qz::string, ZuPboObject*>::Iterator it(pbos.getRoot());
        ZuPboObject* pbo = it->getValue();
        pbos.remove(it.getNode());
        pbo->release();
    }
}

ZuPboObject* ZuPboMgr::createPboObject(const char* name, int width, int height) {
    if (!name) return nullptr;
    if (auto* node = pbos.find(qz::string(name))) return node->getValue();
    ZuPboObject* pbo = new ZuPboObject();
    pbo->resetPboWidth(name, width, height);
    pbos.insert(qz::string(name), pbo);
    return pbo;
}

ZuPboObject* ZuPboMgr::getPboObject(const char* name) {
    if (!name) return nullptr;
    auto* node = pbos.find(qz::string(name));
    return node ? node->getValue() : nullptr;
}

void ZuPboMgr::destroyPboObject(ZuPboObject* pbo) {
    if (!pbo) return;
    for (qz::map<qz::string, ZuPboObject*>::Iterator it(pbos.getRoot()); !it.atEnd(); ++it) {
        if (it->getValue() != pbo) continue;
        pbos.remove(it.getNode());
        pbo->release();
        return;
    }
}
