#include "render/fbo/ZuMSAAFboObject.h"

#include "platform/ZuLog.h"

#include <GLES3/gl3.h>

ZuMSAAFboObject::~ZuMSAAFboObject() { disableFbo(); }

bool ZuMSAAFboObject::resetFboWidth(int w, int h) {
    if (w <= 0 || h <= 0) return false;
    if (w == width && h == height && fboId) return true;
    if (!isGles3(app)) {
        QZLOGW("multisample framebuffer needs ES 3; %dx%d not made", w, h);
        return false;
    }
    if (fboId) disableFbo();
    setFirstFboId();
    width = w;
    height = h;
    glGenFramebuffers(1, &fboId);
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);

    glGenRenderbuffers(1, &colorRb);
    glBindRenderbuffer(GL_RENDERBUFFER, colorRb);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_RGBA8, w, h);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colorRb);
    colorEnabled = true;

    glGenRenderbuffers(1, &depthRb);
    glBindRenderbuffer(GL_RENDERBUFFER, depthRb);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, kSamples, GL_DEPTH24_STENCIL8, w, h);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, depthRb);
    depthEnabled = true;
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depthRb);
    stencilEnabled = true;
    glBindRenderbuffer(GL_RENDERBUFFER, 0);

    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        QZLOGW("multisample framebuffer %u (%dx%d) is incomplete", fboId, w, h);
        return false;
    }
    glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    return true;
}

void ZuMSAAFboObject::disableFbo() {
    if (fboId) glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    if (colorRb) {
        if (fboId) glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, 0);
        glDeleteRenderbuffers(1, &colorRb);
        colorRb = 0;
        colorEnabled = false;
    }
    if (depthRb) {
        if (fboId) {
            glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_STENCIL_ATTACHMENT, GL_RENDERBUFFER, 0);
            glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, 0);
        }
        glDeleteRenderbuffers(1, &depthRb);
        depthRb = 0;
    }
    depthEnabled = stencilEnabled = false;
    if (fboId) {
        glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
        glDeleteFramebuffers(1, &fboId);
        fboId = 0;
    }
}
