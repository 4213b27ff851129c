#include "render/texture/ZuTexturePList.h"

#include "render/texture/ZuTextureSet.h"

ZuTexturePList::ZuTexturePList(ZuAppMain* app) : ZuTexture2D(app) { type = ZU_TEXTURE_TYPE_PLIST; }

ZuTexturePList::~ZuTexturePList() {
    unbindTexset();
    // The page's name is borrowed: never delete it here.
    id = -1;
}

void ZuTexturePList::zudestroy() {
    ZuTexture2D::zudestroy();
    unbindTexset();
    id = -1;
}

void ZuTexturePList::bindTexset(ZuTextureSet* page) {
    if (page == set) return;
    if (page) page->retain();
    unbindTexset();
    set = page;
}

void ZuTexturePList::unbindTexset() { qzSafeRelease(set); }

void ZuTexturePList::refreshParam() {
    if (!set) return;
    id = set->getid();
    externalId = true;
    width = set->getwidth();
    height = set->getheight();
}

void ZuTexturePList::apply() {
    if (!set) return;
    set->apply();
    refreshParam();
}

void ZuTexturePList::apply(void* pixels) {
    if (!set) return;
    set->apply(pixels);
    refreshParam();
}

void ZuTexturePList::commit() {
    if (!set) return;
    set->commit();
    refreshParam();
}

bool ZuTexturePList::getbLoad() { return set ? set->getbLoad() : ZuTexture2D::getbLoad(); }
