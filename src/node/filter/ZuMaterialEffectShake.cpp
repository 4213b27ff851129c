#include "node/filter/ZuMaterialEffectShake.h"

#include <GLES2/gl2.h>
#include <cmath>

void ZuMaterialEffectShake::setWidthAndHeight(int w, int) {
    // A zero or negative width would put an infinite texel into the shader.
    width = w > 0 ? static_cast<float>(w) : 1.0f;
    height = 100000.0f;
}

void ZuMaterialEffectShake::update(float ms) {
    if (std::isfinite(ms) && ms > 0.0f) time += ms * 0.001f;
    if (time >= kPeriod) time = 0.0f;
    ZuGMaterial::update(ms);
}

void ZuMaterialEffectShake::_refreshInner() {
    glUniform1f(uniformLocation("u_time"), time);
    glUniform2f(uniformLocation("texel"), 1.0f / width, 1.0f / height);
    ZuGMaterial::_refreshInner();
}

double ZuMaterialEffectShake::amountAt(double t) {
    const double beat = std::sin(3.0 * t) * std::sin(12.0 * t) * std::sin(19.0 * t) * std::sin(33.0 * t);
    return beat * beat * 200.0 + 6.0;
}
