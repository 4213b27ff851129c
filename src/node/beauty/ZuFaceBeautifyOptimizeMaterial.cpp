#include "node/beauty/ZuFaceBeautifyOptimizeMaterial.h"

#include <GLES2/gl2.h>
#include <algorithm>

void ZuFaceBeautifyOptimizeMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, programKey());
}

void ZuFaceBeautifyOptimizeMaterial::setWidthAndHeight(float newWidth, float newHeight) {
    imageSize[0] = newWidth;
    imageSize[1] = newHeight;
}

void ZuFaceBeautifyOptimizeMaterial::setSmooth(float v) { softenStrength = std::min(std::max(v, 0.0f), 1.0f); }

void ZuFaceBeautifyOptimizeMaterial::_refreshInner() {
    int location = uniformLocation("imageSize");
    if (location >= 0) glUniform2fv(location, 1, imageSize);
    location = uniformLocation("softenStrength");
    if (location >= 0) glUniform1f(location, softenStrength);
}
