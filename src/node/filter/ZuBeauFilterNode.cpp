#include "node/filter/ZuBeauFilterNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/filter/ZuBeauFilterMaterial.h"
#include "node/filter/ZuBeauFilterTable.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <string>

ZuBeauFilterNode::ZuBeauFilterNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuBeauFilterNode"); }

ZuBeauFilterNode::~ZuBeauFilterNode() { releaseLook(); }

void ZuBeauFilterNode::zudestroy() {
    ZuFilter::zudestroy();
    releaseLook();
}

void ZuBeauFilterNode::releaseLook() {
    for (ZuTexture*& texture : filterTex) qzSafeRelease(texture);
    qzSafeRelease(material);
}

void ZuBeauFilterNode::setFilterType(ZUBEAUFILTERTYPE type) {
    filterType = type;
    loadFilter();
}

void ZuBeauFilterNode::setFilterTex(int index, ZuTexture* texture) {
    qzAssignRetained(filterTex[index], texture);
}

void ZuBeauFilterNode::loadFilter() {
    const ZuBeauFilterTable::Look* look = ZuBeauFilterTable::lookOf(filterType);
    if (!look || !app || !app->getGlobalMgr()) return;
    releaseLook();
    material = new ZuBeauFilterMaterial(app, filterType);
    material->init();
    ZuTexMgr* textures = app->getGlobalMgr()->getTexMgr();
    for (int i = 0; i < kImages && look->images[i]; ++i) {
        std::string path = std::string("shader/filter/filterimg/") + look->images[i];
        setFilterTex(i, textures ? textures->getTexture(path.c_str(), true, false) : nullptr);
    }
}

bool ZuBeauFilterNode::imagesLoaded() const {
    for (ZuTexture* texture : filterTex)
        if (texture && !texture->getbLoad()) return false;
    return true;
}

void ZuBeauFilterNode::update(float dt) {
    ZuFilter::update(dt);
    if (!getRenderObject() || !material) return;
    for (int i = 0; i < 3; ++i)
        if (filterTex[i]) material->setTextureIndex(i + 1, filterTex[i]);
    if (filterTex[3]) material->setTexture4(filterTex[3]);
    if (filterTex[4]) material->setTexture5(filterTex[4]);
    bindPicture(material);
}

void ZuBeauFilterNode::render() {
    if (!isVisible()) return;
    if (!material || !imagesLoaded()) return;
    pushPass(RS_FILTER, "BeauFilter swap", "BeauFilter render");
}
