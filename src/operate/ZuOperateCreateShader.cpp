#include "operate/ZuOperateCreateShader.h"

#include "render/material/ZuMaterial.h"

void ZuOperateCreateShader::process(float) {
    if (material) material->AsynloadShader(app, name.c_str());
}
