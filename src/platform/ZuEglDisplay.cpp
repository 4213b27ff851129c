#include "platform/ZuEglDisplay.h"

#include "platform/ZuLog.h"

#include <EGL/eglext.h>
#include <mutex>

#ifndef EGL_PLATFORM_SURFACELESS_MESA
#define EGL_PLATFORM_SURFACELESS_MESA 0x31DD
#endif

namespace {
std::mutex g_lock;
EGLDisplay g_display = EGL_NO_DISPLAY;
int g_users = 0;

EGLDisplay nativeDisplay() {
#if defined(__ANDROID__)
    return eglGetDisplay(EGL_DEFAULT_DISPLAY);
#else
    auto getPlatformDisplay =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getPlatformDisplay) return eglGetDisplay(EGL_DEFAULT_DISPLAY);
    return getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
#endif
}
} // namespace

EGLDisplay ZuEglDisplay::acquire() {
    std::lock_guard<std::mutex> guard(g_lock);
    if (g_users == 0) {
        EGLDisplay display = nativeDisplay();
        if (display == EGL_NO_DISPLAY) {
            QZLOGE("EGL: no display");
            return EGL_NO_DISPLAY;
        }
        EGLint major = 0, minor = 0;
        if (!eglInitialize(display, &major, &minor)) {
            QZLOGE("EGL: eglInitialize failed: 0x%x", eglGetError());
            return EGL_NO_DISPLAY;
        }
        eglBindAPI(EGL_OPENGL_ES_API);
        g_display = display;
    }
    ++g_users;
    return g_display;
}

void ZuEglDisplay::release(EGLDisplay display) {
    std::lock_guard<std::mutex> guard(g_lock);
    if (display == EGL_NO_DISPLAY || display != g_display || g_users == 0) return;
    if (--g_users > 0) return;
    eglTerminate(g_display);
    g_display = EGL_NO_DISPLAY;
}

int ZuEglDisplay::users() {
    std::lock_guard<std::mutex> guard(g_lock);
    return g_users;
}
