#include "render/texture/ZuRenderTexture.h"

#include <GLES3/gl3.h>
#include <cstring>

namespace {

bool isPowerOfTwo(int v) { return v > 0 && (v & (v - 1)) == 0; }

} // namespace

int ZuRenderTexture::bytesPerPixel(int format) {
    switch (format) {
    case GL_RGBA: return 4;
    case GL_RGB: return 3;
    case GL_LUMINANCE_ALPHA: return 2;
    case GL_LUMINANCE:
    case GL_ALPHA: return 1;
    default: return 0;
    }
}

bool ZuRenderTexture::canMipmap(int width, int height) {
    if (isPowerOfTwo(width) && isPowerOfTwo(height)) return true;
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    // "OpenGL ES 3.x" and later mipmap any size.
    return version && std::strncmp(version, "OpenGL ES ", 10) == 0 && version[10] >= '3';
}

void ZuRenderTexture::setSampling(int target, bool mipmaps) {
    glTexParameteri(target, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, mipmaps ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR);
    if (!mipmaps) glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

int ZuRenderTexture::ApplyTexture2D(int width, int height, int inFormat, int dataFormat,
                                    const void* pixels, bool mipmaps) {
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, inFormat, width, height, 0, dataFormat, GL_UNSIGNED_BYTE, pixels);
    bool mip = mipmaps && canMipmap(width, height);
    if (mip) glGenerateMipmap(GL_TEXTURE_2D);
    setSampling(GL_TEXTURE_2D, mip);
    return static_cast<int>(id);
}

void ZuRenderTexture::FillTexture2D(int id, int width, int height, int inFormat, int dataFormat,
                                    const void* pixels, bool mipmaps) {
    if (id <= 0) return;
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(id));
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, inFormat, width, height, 0, dataFormat, GL_UNSIGNED_BYTE, pixels);
    bool mip = mipmaps && canMipmap(width, height);
    if (mip) glGenerateMipmap(GL_TEXTURE_2D);
    setSampling(GL_TEXTURE_2D, mip);
}

int ZuRenderTexture::ApplyTextureCamera() {
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    setSampling(GL_TEXTURE_2D, false);
    return static_cast<int>(id);
}

int ZuRenderTexture::ApplyTextureNull(bool mipmaps) {
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    setSampling(GL_TEXTURE_2D, mipmaps);
    return static_cast<int>(id);
}

void ZuRenderTexture::ReturnTexture(int id) {
    if (id <= 0) return;
    GLuint name = static_cast<GLuint>(id);
    glDeleteTextures(1, &name);
}

void ZuRenderTexture::setTextrueNullType(int id, int target) {
    if (id <= 0) return;
    glBindTexture(static_cast<GLenum>(target), static_cast<GLuint>(id));
    setSampling(target, false);
}
