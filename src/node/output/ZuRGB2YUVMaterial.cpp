#include "node/output/ZuRGB2YUVMaterial.h"

#include "platform/ZuLog.h"

#include <GLES2/gl2.h>

const char* ZuRGB2YUVMaterial::programOf(OUTSTEAMTYPE format) {
    switch (format) {
    case OST_NV12: return "rgb2yuvnv12";
    case OST_NV21: return "rgb2yuvnv21";
    case OST_YV12: return "rgb2yuvyv12";
    case OST_I420: return "rgb2yuvi420";
    default: return nullptr;
    }
}

ZuRGB2YUVMaterial::ZuRGB2YUVMaterial(ZuAppMain* app, OUTSTEAMTYPE format) : ZuGMaterial(app) {
    const char* key = programOf(format);
    if (!key) {
        // A packed RGB format has nothing to convert; drawing with no program skips the pass.
        QZLOGW("no YUV conversion for output format %d", static_cast<int>(format));
        return;
    }
    AsynloadShader(app, key);
}

void ZuRGB2YUVMaterial::setTex(float w, float h) {
    texWidth = static_cast<int>(w);
    texHeight = static_cast<int>(h);
}

void ZuRGB2YUVMaterial::_refreshInner() {
    int location = uniformLocation("width");
    if (location >= 0) glUniform1f(location, static_cast<float>(texWidth));
    location = uniformLocation("height");
    if (location >= 0) glUniform1f(location, static_cast<float>(texHeight));
}
