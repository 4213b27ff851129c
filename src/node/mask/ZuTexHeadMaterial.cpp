#include "node/mask/ZuTexHeadMaterial.h"

#include <GLES2/gl2.h>

void ZuTexHeadMaterial::_refreshInner() {
    int location = uniformLocation("uMaskOn");
    if (location >= 0) glUniform1f(location, getTexture(1) ? 1.0f : 0.0f);
    location = uniformLocation("uFrameOn");
    if (location >= 0) glUniform1f(location, getTexture(2) ? 1.0f : 0.0f);
}
