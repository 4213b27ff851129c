#include "node/mask/ZuMaterialFace2d.h"

#include "basesys/ZuRefObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

ZuMaterialFace2d::~ZuMaterialFace2d() { qzSafeRelease(maskTexture); }

void ZuMaterialFace2d::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "drawface2d");
    setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    setDepthTest(false);
}

void ZuMaterialFace2d::update(float dt) {
    ZuGMaterial::update(dt);
    if (maskTexture) setTexture0(maskTexture);
}

void ZuMaterialFace2d::setMaskTexture(ZuTexture* texture) { qzAssignRetained(maskTexture, texture); }
