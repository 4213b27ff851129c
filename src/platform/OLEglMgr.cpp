#include "platform/OLEglMgr.h"

#include "platform/ZuEglDisplay.h"
#include "platform/ZuLog.h"

#if defined(__ANDROID__)
#include <android/native_window.h>
#include <android/native_window_jni.h>
#endif

bool OLEglMgr::init(void* sharedContext) {
    if (context != EGL_NO_CONTEXT) return true;
    EGLContext share = static_cast<EGLContext>(sharedContext);
    // A shared context must live on the display of the one it shares with.
    EGLDisplay current = share != EGL_NO_CONTEXT ? eglGetCurrentDisplay() : EGL_NO_DISPLAY;
    if (current != EGL_NO_DISPLAY) {
        display = current;
        ownDisplay = false;
    } else {
        display = ZuEglDisplay::acquire();
        ownDisplay = true;
        if (display == EGL_NO_DISPLAY) return false;
    }
    const EGLint attributes[] = {
        EGL_RENDERABLE_TYPE, EGL_OPENGL_ES2_BIT,
        EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_ALPHA_SIZE, 8,
        EGL_DEPTH_SIZE, 8, EGL_STENCIL_SIZE, 0,
        EGL_SURFACE_TYPE, EGL_PBUFFER_BIT,
        EGL_NONE,
    };
    EGLint count = 0;
    if (!eglChooseConfig(display, attributes, &config, 1, &count) || count < 1) {
        QZLOGE("engine thread EGL: no RGBA8 ES 2 config (0x%x)", eglGetError());
        destroy();
        return false;
    }
    const EGLint contextAttributes[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
    context = eglCreateContext(display, config, share != EGL_NO_CONTEXT ? share : EGL_NO_CONTEXT, contextAttributes);
    shared = share != EGL_NO_CONTEXT;
    if (context == EGL_NO_CONTEXT) QZLOGE("engine thread EGL: eglCreateContext failed (0x%x)", eglGetError());
    return context != EGL_NO_CONTEXT;
}

bool OLEglMgr::createEglSurface(const char* name, JNIEnv* env, jobject surface) {
    if (!name || context == EGL_NO_CONTEXT) return false;
    if (surfaces.find(qz::string(name))) return makeCurrent(name);
#if defined(__ANDROID__)
    ANativeWindow* window = env && surface ? ANativeWindow_fromSurface(env, surface) : nullptr;
    if (!window) return false;
    EGLSurface created = eglCreateWindowSurface(display, config, window, nullptr);
    if (created == EGL_NO_SURFACE) {
        ANativeWindow_release(window);
        return false;
    }
    surfaces.set(qz::string(name), created);
    windows.set(qz::string(name), window);
    return makeCurrent(name);
#else
    (void)env;
    (void)surface;
    QZLOGW("engine thread EGL: no window surfaces on this platform; use a pbuffer");
    return false;
#endif
}

bool OLEglMgr::createEglSurface(const char* name, int width, int height) {
    if (!name || context == EGL_NO_CONTEXT || width <= 0 || height <= 0) return false;
    if (!surfaces.find(qz::string(name))) {
        const EGLint attributes[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        EGLSurface created = eglCreatePbufferSurface(display, config, attributes);
        if (created == EGL_NO_SURFACE) {
            QZLOGE("engine thread EGL: pbuffer %dx%d failed (0x%x)", width, height, eglGetError());
            return false;
        }
        surfaces.set(qz::string(name), created);
    }
    return makeCurrent(name);
}

bool OLEglMgr::makeCurrent(const char* name) {
    auto* found = name ? surfaces.find(qz::string(name)) : nullptr;
    if (!found) return false;
    return eglMakeCurrent(display, found->getValue(), found->getValue(), context) == EGL_TRUE;
}

bool OLEglMgr::makeCurrent() {
    bool all = true;
    for (auto it = surfaces.getIterator(); !it.atEnd(); ++it)
        all = eglMakeCurrent(display, it->getValue(), it->getValue(), context) == EGL_TRUE && all;
    return all;
}

bool OLEglMgr::swapBuffers(const char* name) {
    auto* found = name ? surfaces.find(qz::string(name)) : nullptr;
    return found && eglSwapBuffers(display, found->getValue()) == EGL_TRUE;
}

bool OLEglMgr::swapBuffers() {
    bool all = true;
    for (auto it = surfaces.getIterator(); !it.atEnd(); ++it)
        all = eglSwapBuffers(display, it->getValue()) == EGL_TRUE && all;
    return all;
}

void OLEglMgr::destroy() {
    if (display == EGL_NO_DISPLAY) return;
    if (eglGetCurrentContext() == context && context != EGL_NO_CONTEXT)
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    // The context is this manager's own even when it shares objects with the
    // host's: only the host's context is left alone.
    if (context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
    for (auto it = surfaces.getIterator(); !it.atEnd(); ++it) {
#if defined(__ANDROID__)
        if (auto* window = windows.find(it->getKey())) ANativeWindow_release(window->getValue());
#endif
        eglDestroySurface(display, it->getValue());
    }
    surfaces.clear();
    windows.clear();
    if (ownDisplay) ZuEglDisplay::release(display);
    eglReleaseThread();
    display = EGL_NO_DISPLAY;
    context = EGL_NO_CONTEXT;
    ownDisplay = false;
}
