#include "logicsys/Animate2D/ZuAnimateFrame.h"

#include "logicsys/Animate2D/ZuTimeLine.h"
#include "render/texture/ZuTexture.h"

ZuAnimateFrame::~ZuAnimateFrame() { releasePages(); }

void ZuAnimateFrame::destroy() {
    if (getTimeLine()) getTimeLine()->clearFrame();
    ZuAnimate::destroy();
    releasePages();
    texNames.clear();
}

void ZuAnimateFrame::releasePages() {
    for (uint32_t i = 0; i < plists.size(); ++i) plists[i]->release();
    plists.clear();
}

void ZuAnimateFrame::pushTexName(const char* path) { texNames.push_back(qz::string(path ? path : "")); }

void ZuAnimateFrame::addTexturePList(ZuTexture* page) {
    if (!page) return;
    page->retain();
    plists.push_back(page);
}

bool ZuAnimateFrame::getBeLoadFinish() {
    for (uint32_t i = 0; i < plists.size(); ++i)
        if (plists[i]->getid() < 0 && !plists[i]->getbLoad()) return false;
    return true;
}
