#include "render/material/ZuMaterialColorSelect2d.h"

#include <GLES2/gl2.h>

ZuMaterialColorSelect2d::ZuMaterialColorSelect2d(ZuAppMain* app) : ZuGMaterial(app), color(1, 1, 1, 1) {}

void ZuMaterialColorSelect2d::init() {
    ZuGMaterial::init();
    AsynloadShader(app, programKey());
    depthTest = true;
    blendEnable = false;
}

void ZuMaterialColorSelect2d::_refreshInner() {
    int location = uniformLocation("u_color");
    if (location >= 0) glUniform4f(location, color.r, color.g, color.b, color.a);
}
