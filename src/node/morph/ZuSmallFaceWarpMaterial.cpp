#include "node/morph/ZuSmallFaceWarpMaterial.h"

#include <GLES2/gl2.h>
#include <algorithm>

void ZuSmallFaceWarpMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, program);
}

void ZuSmallFaceWarpMaterial::copy(float* to, const float* from, int n) {
    if (!from) return;
    std::copy(from, from + std::min(std::max(n, 0), kMaxPairs * 2), to);
}

void ZuSmallFaceWarpMaterial::setBounds(float minX, float maxX, float minY, float maxY) {
    bounds[0] = minX, bounds[1] = maxX, bounds[2] = minY, bounds[3] = maxY;
}

void ZuSmallFaceWarpMaterial::setShortBounds(float minX, float maxX, float minY, float maxY) {
    shortBounds[0] = minX, shortBounds[1] = maxX, shortBounds[2] = minY, shortBounds[3] = maxY;
}

void ZuSmallFaceWarpMaterial::_refreshInner() {
    auto f1 = [&](const char* name, float v) {
        int at = uniformLocation(name);
        if (at >= 0) glUniform1f(at, v);
    };
    auto i1 = [&](const char* name, int v) {
        int at = uniformLocation(name);
        if (at >= 0) glUniform1i(at, v);
    };
    auto v2 = [&](const char* name, const float* v) {
        int at = uniformLocation(name);
        if (at >= 0) glUniform2fv(at, kMaxPairs, v);
    };
    auto fv = [&](const char* name, const float* v) {
        int at = uniformLocation(name);
        if (at >= 0) glUniform1fv(at, kMaxPairs, v);
    };
    f1("radius", radius);
    f1("aspectRatio", aspectRatio);
    i1("arraySize", arraySize);
    i1("isSmall", isSmall ? 1 : 0);
    v2("leftContourPoints", left);
    v2("rightContourPoints", right);
    v2("topContourPoints", top);
    v2("bottomContourPoints", bottom);
    fv("deltaArray", delta);
    fv("deltaShortArray", deltaShort);
    f1("minX", bounds[0]), f1("maxX", bounds[1]), f1("minY", bounds[2]), f1("maxY", bounds[3]);
    f1("minShortX", shortBounds[0]), f1("maxShortX", shortBounds[1]);
    f1("minShortY", shortBounds[2]), f1("maxShortY", shortBounds[3]);
}
