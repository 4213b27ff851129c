#include "node/filter/ZuMaterialScreenSevenColor.h"

void ZuMaterialScreenSevenColor::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "screen7color");
    setDepthTest(true);
    setBlendEnable(false);
}
