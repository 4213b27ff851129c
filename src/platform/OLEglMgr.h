#pragma once

#include "basesys/qzMap.h"
#include "basesys/qzString.h"
#include "platform/ZuJni.h"

#include <EGL/egl.h>

struct ANativeWindow;

// An ES 2 context for one engine thread, made to share with the host's
// context when one is given, and its surfaces by name: a window surface
// over an Android Surface, or a pbuffer. On Linux there is no window: a
// surface object is refused and the caller falls back to a pbuffer.
class OLEglMgr {
public:
    OLEglMgr() = default;
    ~OLEglMgr() { destroy(); }
    OLEglMgr(const OLEglMgr&) = delete;
    OLEglMgr& operator=(const OLEglMgr&) = delete;

    // Display, config and context; sharing with sharedContext (then on the
    // display that context is current on). False when no context came out.
    bool init(void* sharedContext);
    // A window surface over the host's Surface; false off Android.
    bool createEglSurface(const char* name, JNIEnv* env, jobject surface);
    // A width x height pbuffer.
    bool createEglSurface(const char* name, int width, int height);
    bool makeCurrent(const char* name);
    bool makeCurrent();
    bool swapBuffers(const char* name);
    bool swapBuffers();
    // Unbinds, then the context, every surface and window; a display of its
    // own goes back (the host's display, when sharing, stays up).
    void destroy();

    bool isShared() const { return shared; }
    EGLContext getContext() const { return context; }

private:
    bool shared = false;
    // The display is the host's when sharing (never terminated here).
    bool ownDisplay = false;
    EGLConfig config = nullptr;
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
    qz::map<qz::string, EGLSurface> surfaces;
    qz::map<qz::string, ANativeWindow*> windows;
};
