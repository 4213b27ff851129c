#include "node/filter/ZuMaterialScreenExpand.h"

#include <GLES2/gl2.h>

void ZuMaterialScreenExpand::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "screenexpand");
    setDepthTest(true);
    setBlendEnable(false);
}

void ZuMaterialScreenExpand::update(float ms) {
    ZuGMaterial::update(ms);
    expand += ms * speed * 0.001f;
    if (expand > maxSize) expand = 1.0f;
}

void ZuMaterialScreenExpand::_refreshInner() {
    ZuGMaterial::_refreshInner();
    glUniform1f(uniformLocation("u_expand"), expand);
    glUniform1f(uniformLocation("u_maxsize"), maxSize);
}
