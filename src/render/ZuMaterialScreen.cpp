#include "render/ZuMaterialScreen.h"

void ZuMaterialScreen::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "screennor");
    depthTest = true;
    blendEnable = false;
}
