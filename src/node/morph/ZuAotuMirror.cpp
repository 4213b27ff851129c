#include "node/morph/ZuAotuMirror.h"

#include <GLES2/gl2.h>
#include <cmath>

void ZuAotuMirror::init() {
    ZuGMaterial::init();
    AsynloadShader(app, programKey);
}

void ZuAotuMirror::setSamplerStep(float x, float y) {
    samplerStep[0] = x;
    samplerStep[1] = y;
}

void ZuAotuMirror::_refreshInner() {
    int location = uniformLocation("samplerSteps");
    if (location >= 0) glUniform2fv(location, 1, samplerStep);
    // A lens of no size (or a NaN from a face of no size) would divide by
    // zero in the shader; a negative radius is as good as none.
    float safeRadius = std::isfinite(radius) && radius > 0.0f ? radius : 0.0f;
    location = uniformLocation("radius");
    if (location >= 0) glUniform1f(location, safeRadius);
    location = uniformLocation("intensity");
    if (location >= 0) glUniform1f(location, std::isfinite(intensity) ? intensity : 0.0f);
}
