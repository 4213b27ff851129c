#include "platform/ZuContext.h"

#include "platform/ZuEglDisplay.h"
#include "platform/ZuLog.h"

#include <cstdlib>

namespace {
void logEglError(const char* call) { QZLOGD("EGL_ERROR %x (%s)", eglGetError(), call); }
} // namespace

ZuContext::~ZuContext() { destroy(); }

void ZuContext::init() {
    display = EGL_NO_DISPLAY;
    configs = nullptr;
    config = nullptr;
    context = EGL_NO_CONTEXT;
    surface = EGL_NO_SURFACE;
}

bool ZuContext::createContextOff(int width, int height) {
    if (width <= 0 || height <= 0) {
        QZLOGW("off-screen context: refused size %dx%d", width, height);
        return false;
    }
    if (context != EGL_NO_CONTEXT) {
        QZLOGW("off-screen context: already made");
        return false;
    }
    if (display == EGL_NO_DISPLAY) {
        display = ZuEglDisplay::acquire();
        if (display == EGL_NO_DISPLAY) return false;
    }
    EGLint total = 0;
    if (!eglGetConfigs(display, nullptr, 0, &total) || total <= 0) {
        logEglError("eglGetConfigs");
        return false;
    }
    if (!configs) {
        configs = static_cast<EGLConfig*>(calloc(static_cast<size_t>(total), sizeof(EGLConfig)));
        if (!configs) return false;
        eglGetConfigs(display, configs, total, &total);
        config = configs[0];
    }
    const EGLint configAttributes[] = {
        EGL_LEVEL, 0,
        EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_ALPHA_SIZE, 8,
        EGL_DEPTH_SIZE, 16,
        EGL_CONFORMANT, EGL_OPENGL_ES2_BIT,
        EGL_SURFACE_TYPE, EGL_PBUFFER_BIT,
        EGL_NONE,
    };
    EGLint chosen = 0;
    if (!eglChooseConfig(display, configAttributes, &config, 1, &chosen) || chosen <= 0) {
        logEglError("eglChooseConfig");
        return false;
    }
    EGLint red = 0, alpha = 0, depth = 0;
    eglGetConfigAttrib(display, config, EGL_RED_SIZE, &red);
    eglGetConfigAttrib(display, config, EGL_ALPHA_SIZE, &alpha);
    eglGetConfigAttrib(display, config, EGL_DEPTH_SIZE, &depth);
    QZLOGD("off-screen config: red %d alpha %d depth %d", red, alpha, depth);

    const EGLint contextAttributes[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
    context = eglCreateContext(display, config, EGL_NO_CONTEXT, contextAttributes);
    if (context == EGL_NO_CONTEXT) {
        logEglError("eglCreateContext");
        return false;
    }
    if (!createGLSurfaceOff(width, height)) {
        destroyContextOff();
        return false;
    }
    if (!eglMakeCurrent(display, surface, surface, context)) {
        logEglError("eglMakeCurrent");
        destroyGLSurface();
        destroyContextOff();
        return false;
    }
    return true;
}

bool ZuContext::createGLSurfaceOff(int width, int height) {
    if (display == EGL_NO_DISPLAY || !config) return false;
    const EGLint fullAttributes[] = {
        EGL_WIDTH, width, EGL_HEIGHT, height,
        EGL_LARGEST_PBUFFER, 0,
        EGL_TEXTURE_FORMAT, EGL_TEXTURE_RGBA,
        EGL_TEXTURE_TARGET, EGL_TEXTURE_2D,
        EGL_MIPMAP_TEXTURE, 0,
        EGL_VG_COLORSPACE, EGL_VG_COLORSPACE_sRGB,
        EGL_VG_ALPHA_FORMAT, EGL_VG_ALPHA_FORMAT_NONPRE,
        EGL_NONE,
    };
    surface = eglCreatePbufferSurface(display, config, fullAttributes);
    if (surface == EGL_NO_SURFACE) {
        // A config that cannot bind its pbuffer to a texture refuses the
        // texture attributes; the plain size is all the engine needs.
        logEglError("eglCreatePbufferSurface (texture binding)");
        const EGLint plainAttributes[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        surface = eglCreatePbufferSurface(display, config, plainAttributes);
    }
    if (surface == EGL_NO_SURFACE) {
        logEglError("eglCreatePbufferSurface");
        return false;
    }
    return true;
}

void ZuContext::destroyGLSurface() {
    if (display != EGL_NO_DISPLAY && surface != EGL_NO_SURFACE) eglDestroySurface(display, surface);
    surface = EGL_NO_SURFACE;
}

void ZuContext::destroyContextOff() {
    if (display != EGL_NO_DISPLAY && context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
    context = EGL_NO_CONTEXT;
}

bool ZuContext::active() {
    if (!isReady()) return false;
    if (eglGetCurrentContext() == context) return true;
    if (!eglMakeCurrent(display, surface, surface, context)) {
        logEglError("eglMakeCurrent");
        return false;
    }
    return true;
}

bool ZuContext::swap() {
    if (!isReady()) return false;
    if (!eglSwapBuffers(display, surface)) {
        logEglError("eglSwapBuffers");
        return false;
    }
    return true;
}

void ZuContext::unbind() {
    if (display == EGL_NO_DISPLAY) return;
    if (context != EGL_NO_CONTEXT && eglGetCurrentContext() == context)
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglReleaseThread();
}

void ZuContext::destroy() {
    if (display != EGL_NO_DISPLAY) {
        if (eglGetCurrentContext() == context && context != EGL_NO_CONTEXT)
            eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        destroyGLSurface();
        destroyContextOff();
        ZuEglDisplay::release(display);
        display = EGL_NO_DISPLAY;
        eglReleaseThread();
    }
    free(configs);
    configs = nullptr;
    config = nullptr;
}
