#include "render/fbo/ZuOutFboObject.h"

#include <GLES3/gl3.h>

ZuOutFboObject::~ZuOutFboObject() { fboId = 0; }

bool ZuOutFboObject::resetOutFboWidth(int w, int h, unsigned int hostFbo) {
    if (w <= 0 || h <= 0) return false;
    if (w == width && h == height) return true;
    if (fboId) disableFbo();
    setFirstFboId();
    width = w;
    height = h;
    fboId = hostFbo;
    return true;
}

void ZuOutFboObject::disableFbo() { fboId = 0; }

void ZuOutFboObject::unbind() {
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    prevFbo = nullptr;
}
