#include "render/command/ZuRenderCmdFboBlit.h"

#include "render/fbo/ZuFboObject.h"

#include <GLES3/gl3.h>

ZuRenderCmdFboBlit::ZuRenderCmdFboBlit(ZuFboObject* dest, ZuFboObject* src, int width, int height)
    : destFbo(dest), srcFbo(src), width(width), height(height) {
    if (destFbo) destFbo->retain();
    if (srcFbo) srcFbo->retain();
}

ZuRenderCmdFboBlit::~ZuRenderCmdFboBlit() {
    if (destFbo) destFbo->release();
    if (srcFbo) srcFbo->release();
}

void ZuRenderCmdFboBlit::render() {
    if (!destFbo || !srcFbo) return;
    glBindFramebuffer(GL_READ_FRAMEBUFFER, srcFbo->getFboID());
    bool complete = glCheckFramebufferStatus(GL_READ_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    if (complete) {
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, destFbo->getFboID());
        complete = glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    }
    if (complete)
        glBlitFramebuffer(0, 0, width, height, 0, 0, width, height,
                          GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
}
