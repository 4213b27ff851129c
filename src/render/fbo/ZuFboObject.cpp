#include "render/fbo/ZuFboObject.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuLiveObjects.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES3/gl3.h>
#include <cstring>

ZuFboObject::ZuFboObject(ZuAppMain* app)
    : ZuGBase(app), live(ZuLiveObjects::enter(app, ZuLiveObjects::Kind::Framebuffer)) {}

ZuFboObject::~ZuFboObject() {
    // Harmless after an earlier clear: every name is 0 by then.
    disableFbo();
    prevFbo = nullptr;
    ZuLiveObjects::leave(live, ZuLiveObjects::Kind::Framebuffer);
}

bool ZuFboObject::isGles3(ZuAppMain* app) {
    if (ZuGBase::configOf(app))
        return app->getGlobalMgr()->getConfig()->glversion >= 0x30000;
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    return version && std::strncmp(version, "OpenGL ES ", 10) == 0 && version[10] >= '3';
}

unsigned int ZuFboObject::depthStencilFormat() {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    if (version && std::strncmp(version, "OpenGL ES ", 10) == 0 && version[10] >= '3')
        return GL_DEPTH24_STENCIL8;
    const char* ext = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (ext && std::strstr(ext, "GL_OES_packed_depth_stencil")) return GL_DEPTH24_STENCIL8;
    return GL_DEPTH_COMPONENT16;
}

void ZuFboObject::setFirstFboId() {
    if (owner) owner->setFirstFboId();
}

unsigned int ZuFboObject::firstFboId() const { return owner ? owner->getFirstFboId() : 0; }

void ZuFboObject::releaseTexture(ZuTexture*& texture) {
    if (!texture) return;
    texture->zudestroy();
    qzSafeRelease(texture);
}

void ZuFboObject::setClearColor(float r, float g, float b, float a) {
    clearColor[0] = r;
    clearColor[1] = g;
    clearColor[2] = b;
    clearColor[3] = a;
}

bool ZuFboObject::resetFboWidth(int w, int h) { return buildFramebuffer(w, h, -1); }

bool ZuFboObject::buildFramebuffer(int w, int h, long long texId) {
    if (w <= 0 || h <= 0) return false;
    if (w == width && h == height && fboId) return true;
    if (fboId) disableFbo();
    releaseTexture(mainTex);
    setFirstFboId();
    width = w;
    height = h;
    mainTex = texId < 0 ? ZuTexMgr::createInternalTexture(app, w, h, GL_RGBA)
                        : ZuTexMgr::createInternalTextureWithTexID(app, static_cast<int>(texId), w, h, GL_RGBA);
    if (!fboId) glGenFramebuffers(1, &fboId);
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           static_cast<GLuint>(mainTex->getid()), 0);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        QZLOGW("framebuffer %u (%dx%d) is incomplete", fboId, w, h);
        return false;
    }
    enableDepthBuffer();
    enableStencilBuffer();
    glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    return true;
}

bool ZuFboObject::enableDepthBuffer() {
    if (!fboId) return false;
    if (depthRb) disableDepthBuffer();
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glGenRenderbuffers(1, &depthRb);
    glBindRenderbuffer(GL_RENDERBUFFER, depthRb);
    glRenderbufferStorage(GL_RENDERBUFFER, depthStencilFormat(), width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, depthRb);
    bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    if (complete) depthEnabled = true;
    glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    return complete;
}

bool ZuFboObject::enableStencilBuffer() {
    if (!depthRb) return false;
    // Without packed depth-stencil the renderbuffer has no stencil bits.
    if (depthStencilFormat() != GL_DEPTH24_STENCIL8) return false;
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depthRb);
    stencilEnabled = true;
    glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    return true;
}

void ZuFboObject::disableStencilBufer() {
    if (!stencilEnabled) return;
    if (fboId) {
        glBindFramebuffer(GL_FRAMEBUFFER, fboId);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_STENCIL_ATTACHMENT, GL_RENDERBUFFER, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    }
    stencilEnabled = false;
}

void ZuFboObject::disableDepthBuffer() {
    // Stencil shares the renderbuffer.
    disableStencilBufer();
    if (!depthRb) return;
    if (fboId) {
        glBindFramebuffer(GL_FRAMEBUFFER, fboId);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    }
    glDeleteRenderbuffers(1, &depthRb);
    depthRb = 0;
    depthEnabled = false;
}

void ZuFboObject::enableSwapBuffer() {
    releaseTexture(secondTex);
    secondTex = ZuTexMgr::createInternalTexture(app, width, height, GL_RGBA);
    swapEnabled = true;
}

void ZuFboObject::disableSwapBuffer() {
    releaseTexture(secondTex);
    swapEnabled = false;
}

void ZuFboObject::disableFbo() {
    disableDepthBuffer();
    disableSwapBuffer();
    if (fboId) {
        glBindFramebuffer(GL_FRAMEBUFFER, fboId);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, 0, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
        glDeleteFramebuffers(1, &fboId);
        fboId = 0;
        releaseTexture(mainTex);
    }
}

void ZuFboObject::clear() {
    disableFbo();
    prevFbo = nullptr;
}

void ZuFboObject::bind() {
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glViewport(0, 0, width, height);
    glClearColor(clearColor[0], clearColor[1], clearColor[2], clearColor[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

void ZuFboObject::bindNoclear() {
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glViewport(0, 0, width, height);
}

void ZuFboObject::unbind() {
    glBindFramebuffer(GL_FRAMEBUFFER, firstFboId());
    prevFbo = nullptr;
}

void ZuFboObject::swap() {
    if (!mainTex || !secondTex || !fboId) return;
    mainTex->exchangeName(secondTex);
    glBindFramebuffer(GL_FRAMEBUFFER, fboId);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           static_cast<GLuint>(mainTex->getid()), 0);
    glCheckFramebufferStatus(GL_FRAMEBUFFER);
    glClearColor(clearColor[0], clearColor[1], clearColor[2], clearColor[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

bool ZuFboObject::blitTo(ZuFboObject* dest, int blitWidth, int blitHeight) {
    if (!dest || !isGles3(app)) return false;
    bool done = false;
    glBindFramebuffer(GL_READ_FRAMEBUFFER, fboId);
    if (glCheckFramebufferStatus(GL_READ_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) {
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, dest->getFboID());
        if (glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) {
            glBlitFramebuffer(0, 0, blitWidth, blitHeight, 0, 0, blitWidth, blitHeight,
                              GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT, GL_NEAREST);
            done = true;
        }
    }
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    return done;
}
