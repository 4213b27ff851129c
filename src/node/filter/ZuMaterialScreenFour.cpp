#include "node/filter/ZuMaterialScreenFour.h"

void ZuMaterialScreenFour::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "screencut4");
    setDepthTest(true);
    setBlendEnable(false);
}
