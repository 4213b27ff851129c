#include "node/mask/ZuMaterialSwapFace.h"

#include <GLES2/gl2.h>

void ZuMaterialSwapFace::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "drawfaceBlend");
    setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    setDepthTest(false);
}
