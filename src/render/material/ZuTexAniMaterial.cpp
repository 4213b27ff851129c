#include "render/material/ZuTexAniMaterial.h"

#include <GLES2/gl2.h>
#include <cmath>

namespace {

// In 0 (inclusive) to 1 (exclusive): a tiny negative value minus its floor
// would round up to exactly 1.
float fractionalPart(float value) {
    float fraction = value - std::floor(value);
    return fraction < 1.0f ? fraction : 0.0f;
}

} // namespace

void ZuTexAniMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "texAni");
    angle = 0.0f;
    speed = 0.1f;
}

void ZuTexAniMaterial::setDegreeAndSpeed(float degree, float newSpeed) {
    angle = degree / 180.0f * 3.1415927f;
    speed = newSpeed;
}

void ZuTexAniMaterial::update(float dt) {
    blendEnable = true;
    blendSrc = GL_ONE;
    blendDst = GL_ONE_MINUS_SRC_ALPHA;
    float seconds = dt * 0.001f;
    offsetX += seconds * speed * std::cos(angle);
    offsetY += seconds * speed * std::sin(angle);
    // Only the fractional part matters to the wrap, and keeping the numbers
    // small keeps their precision over hours of scrolling.
    offsetX = fractionalPart(offsetX);
    offsetY = fractionalPart(offsetY);
}

void ZuTexAniMaterial::_refreshInner() {
    int location = uniformLocation("uOffset");
    if (location >= 0) glUniform2f(location, offsetX, offsetY);
}
