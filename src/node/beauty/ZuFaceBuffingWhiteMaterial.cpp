#include "node/beauty/ZuFaceBuffingWhiteMaterial.h"

#include <GLES2/gl2.h>
#include <algorithm>

ZuFaceBuffingWhiteMaterial::ZuFaceBuffingWhiteMaterial(ZuAppMain* app, const char* programKey, float width,
                                                       float height)
    : ZuGMaterial(app), programKey(programKey), width(width), height(height) {}

void ZuFaceBuffingWhiteMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, programKey);
}

void ZuFaceBuffingWhiteMaterial::setSmooth(float v) { smooth = 0.8f * std::min(std::max(v, 0.0f), 1.0f); }

void ZuFaceBuffingWhiteMaterial::setWhite(float v) { white = 0.8f * std::min(std::max(v, 0.0f), 1.0f) + 0.2f; }

void ZuFaceBuffingWhiteMaterial::setWidthAndHeight(float newWidth, float newHeight) {
    width = newWidth;
    height = newHeight;
}

// One step is 1/720 of the width whatever the real resolution, so the blur
// covers the same share of a face on every device; the vertical step keeps
// the design's aspect ratio.
void ZuFaceBuffingWhiteMaterial::stepOffset(float out[2]) const {
    out[0] = 1.0f / 720.0f;
    float aspect = width > 0.0f ? height / width : 0.0f;
    out[1] = aspect > 0.0f ? 1.0f / (aspect * 720.0f) : 1.0f / 720.0f;
}

void ZuFaceBuffingWhiteMaterial::params(float out[4]) const {
    out[0] = smooth;
    out[1] = white;
    out[2] = smooth != 0.0f ? 0.2f * white + 0.1f : 0.0f;
    out[3] = 0.0f;
}

void ZuFaceBuffingWhiteMaterial::_refreshInner() {
    float step[2], values[4];
    stepOffset(step);
    params(values);
    int location = uniformLocation("singleStepOffset");
    if (location >= 0) glUniform2fv(location, 1, step);
    location = uniformLocation("params");
    if (location >= 0) glUniform4fv(location, 1, values);
    // Only the soften program of quality 0 reads this; its strength stays unset.
    location = uniformLocation("imageSize");
    if (location >= 0) glUniform2f(location, width, height);
}
