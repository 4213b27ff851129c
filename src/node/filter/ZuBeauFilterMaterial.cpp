#include "node/filter/ZuBeauFilterMaterial.h"

#include "node/filter/ZuBeauFilterTable.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

ZuBeauFilterMaterial::ZuBeauFilterMaterial(ZuAppMain* app, ZUBEAUFILTERTYPE type)
    : ZuGMaterial(app, ZuBeauFilterTable::lookOf(type) ? ZuBeauFilterTable::lookOf(type)->program : nullptr) {}

ZuBeauFilterMaterial::~ZuBeauFilterMaterial() {
    qzSafeRelease(tex4);
    qzSafeRelease(tex5);
}

void ZuBeauFilterMaterial::destroy() {
    qzSafeRelease(tex4);
    qzSafeRelease(tex5);
    ZuGMaterial::destroy();
}

void ZuBeauFilterMaterial::setTexture4(ZuTexture* texture) { qzAssignRetained(tex4, texture); }
void ZuBeauFilterMaterial::setTexture5(ZuTexture* texture) { qzAssignRetained(tex5, texture); }

bool ZuBeauFilterMaterial::resolveExtra(ZuTexture* texture, unsigned& id) {
    if (!texture) return true;
    if (!texture->getbLoad()) return false;
    texture->commit();
    id = static_cast<unsigned>(texture->getid());
    return true;
}

bool ZuBeauFilterMaterial::refreshMaterial() {
    if (!ZuGMaterial::refreshMaterial()) return false;
    if (!resolveExtra(tex4, texId4) || !resolveExtra(tex5, texId5)) return false;
    const unsigned ids[2] = {texId4, texId5};
    const char* names[2] = {"aTexture4", "aTexture5"};
    for (int i = 0; i < 2; ++i) {
        if (!ids[i]) continue;
        glActiveTexture(GL_TEXTURE4 + i);
        glBindTexture(GL_TEXTURE_2D, ids[i]);
        glUniform1i(uniformLocation(names[i]), 4 + i);
    }
    glActiveTexture(GL_TEXTURE0);
    return true;
}
