#include "render/material/ZuMaterialScreen.h"

void ZuMaterialScreen::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "screennor");
    depthTest = true;
    blendEnable = false;
}
