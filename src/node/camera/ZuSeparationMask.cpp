#include "node/camera/ZuSeparationMask.h"

#include "render/material/ZuMaterial.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

namespace {

void assign(ZuTexture*& slot, ZuTexture* texture) {
    qzAssignRetained(slot, texture);
}

// One byte per pixel of the texture's size.
void fill(ZuTexture* texture, unsigned char* data) {
    if (!texture || !data || texture->getwidth() <= 0 || texture->getheight() <= 0) return;
    texture->setData(data, texture->getwidth() * texture->getheight(), true);
}

} // namespace

ZuSeparationMask::~ZuSeparationMask() { clear(); }

void ZuSeparationMask::clear() {
    qzSafeRelease(separationTex);
    qzSafeRelease(templateTex);
}

void ZuSeparationMask::setSeparationTexture(ZuTexture* texture) { assign(separationTex, texture); }
void ZuSeparationMask::setTemplateTexture(ZuTexture* texture) { assign(templateTex, texture); }
void ZuSeparationMask::updateSeparationTextureData(unsigned char* data) { fill(separationTex, data); }
void ZuSeparationMask::updateTemplateTexture(unsigned char* data) { fill(templateTex, data); }

void ZuSeparationMask::applyTo(ZuMaterial* material) const {
    if (!material) return;
    material->setTexture1(separationTex);
    if (templateTex) material->setTexture2(templateTex);
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}
