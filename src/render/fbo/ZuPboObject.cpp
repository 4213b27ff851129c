#include "render/fbo/ZuPboObject.h"

#include "platform/ZuLog.h"

#include <GLES3/gl3.h>

ZuPboObject::~ZuPboObject() {
    if (pboId) glDeleteBuffers(1, &pboId);
    pboId = 0;
}

bool ZuPboObject::resetPboWidth(const char* name, int w, int h) {
    if (w <= 0 || h <= 0) return false;
    if (w == width && h == height) return true;
    width = w;
    height = h;
    byteSize = w * h * 4;
    if (pboId == 0) {
        glGenBuffers(1, &pboId);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, pboId);
        glBufferData(GL_PIXEL_PACK_BUFFER, byteSize, nullptr, GL_DYNAMIC_READ);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
        allocated = byteSize;
    } else if (byteSize > allocated) {
        QZLOGW("pixel buffer '%s': %d bytes asked, %d allocated; reads stay at the first size",
               name ? name : "", byteSize, allocated);
    }
    return true;
}

void ZuPboObject::bind(bool pack) {
    glBindBuffer(pack ? GL_PIXEL_PACK_BUFFER : GL_PIXEL_UNPACK_BUFFER, pboId);
}

void ZuPboObject::unbind(bool pack) { glBindBuffer(pack ? GL_PIXEL_PACK_BUFFER : GL_PIXEL_UNPACK_BUFFER, 0); }
