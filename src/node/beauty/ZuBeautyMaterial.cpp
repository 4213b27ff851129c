#include "node/beauty/ZuBeautyMaterial.h"

#include <GLES2/gl2.h>
#include <cstdio>

void ZuBeautyMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "faceBeautyOutline");
}

void ZuBeautyMaterial::setLocation(int i, float x, float y) {
    if (i < 0 || i >= kSlots) return;
    locations[i][0] = x;
    locations[i][1] = y;
}

void ZuBeautyMaterial::_refreshInner() {
    char name[16];
    for (int i = 0; i < kUsed; ++i) {
        snprintf(name, sizeof name, "location%d", i);
        int location = uniformLocation(name);
        if (location >= 0) glUniform2fv(location, 1, locations[i]);
    }
    int location = uniformLocation("eyelarge");
    if (location >= 0) glUniform2fv(location, 1, eyeLarge);
    location = uniformLocation("faceslim");
    if (location >= 0) glUniform4f(location, faceSlim, chinSlim, chinUpSlim, chinMiddleSlim);
}
