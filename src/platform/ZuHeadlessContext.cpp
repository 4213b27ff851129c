#include "platform/ZuHeadlessContext.h"

#include "platform/ZuEglDisplay.h"

#include <cstdio>


ZuHeadlessContext& ZuHeadlessContext::instance() {
    static ZuHeadlessContext gl;
    return gl;
}

bool ZuHeadlessContext::openDisplay() {
    if (m_display != EGL_NO_DISPLAY) return true;
    if (m_triedDisplay) return false;
    m_triedDisplay = true;

    // Shared with the engine's own contexts, which count their users of it.
    EGLDisplay display = ZuEglDisplay::acquire();
    if (display == EGL_NO_DISPLAY) {
        m_error = "no surfaceless EGL display (is libegl-mesa0 installed?)";
        return false;
    }
    const EGLint configAttributes[] = {
        EGL_SURFACE_TYPE, EGL_PBUFFER_BIT,
        EGL_RENDERABLE_TYPE, EGL_OPENGL_ES2_BIT | EGL_OPENGL_ES3_BIT,
        EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_ALPHA_SIZE, 8,
        EGL_DEPTH_SIZE, 16, EGL_STENCIL_SIZE, 8,
        EGL_NONE,
    };
    EGLint count = 0;
    if (!eglChooseConfig(display, configAttributes, &m_config, 1, &count) || count < 1) {
        m_error = "no RGBA8 pbuffer config with ES 2 and ES 3 on the surfaceless display";
        ZuEglDisplay::release(display);
        return false;
    }
    const EGLint surfaceAttributes[] = {EGL_WIDTH, kSurfaceWidth, EGL_HEIGHT, kSurfaceHeight, EGL_NONE};
    m_surface = eglCreatePbufferSurface(display, m_config, surfaceAttributes);
    if (m_surface == EGL_NO_SURFACE) {
        char text[96];
        snprintf(text, sizeof text, "eglCreatePbufferSurface failed: 0x%x", eglGetError());
        m_error = text;
        ZuEglDisplay::release(display);
        return false;
    }
    if (!eglBindAPI(EGL_OPENGL_ES_API)) {
        m_error = "eglBindAPI(EGL_OPENGL_ES_API) failed";
        return false;
    }
    m_display = display;
    return true;
}

bool ZuHeadlessContext::createContext(int esMajor) {
    EGLContext& slot = m_contexts[esMajor >= 3 ? 1 : 0];
    if (slot != EGL_NO_CONTEXT) return true;
    const EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION, esMajor >= 3 ? 3 : 2, EGL_NONE};
    slot = eglCreateContext(m_display, m_config, EGL_NO_CONTEXT, attributes);
    if (slot == EGL_NO_CONTEXT) {
        char text[96];
        snprintf(text, sizeof text, "eglCreateContext(ES %d) failed: 0x%x", esMajor, eglGetError());
        m_error = text;
        return false;
    }
    return true;
}

bool ZuHeadlessContext::makeCurrent(int esMajor) {
    if (!openDisplay() || !createContext(esMajor)) return false;
    EGLContext context = m_contexts[esMajor >= 3 ? 1 : 0];
    if (eglGetCurrentContext() == context) return true;
    if (!eglMakeCurrent(m_display, m_surface, m_surface, context)) {
        char text[96];
        snprintf(text, sizeof text, "eglMakeCurrent failed: 0x%x", eglGetError());
        m_error = text;
        return false;
    }
    return true;
}

void ZuHeadlessContext::releaseCurrent() {
    if (m_display != EGL_NO_DISPLAY)
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

void ZuHeadlessContext::shutdown() {
    if (m_display == EGL_NO_DISPLAY) return;
    releaseCurrent();
    for (EGLContext& context : m_contexts) {
        if (context != EGL_NO_CONTEXT) eglDestroyContext(m_display, context);
        context = EGL_NO_CONTEXT;
    }
    if (m_surface != EGL_NO_SURFACE) eglDestroySurface(m_display, m_surface);
    m_surface = EGL_NO_SURFACE;
    ZuEglDisplay::release(m_display);
    eglReleaseThread();
    m_display = EGL_NO_DISPLAY;
    m_triedDisplay = false;
}
