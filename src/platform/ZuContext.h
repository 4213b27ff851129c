#pragma once

#include "basesys/ZuGBase.h"

#include <EGL/egl.h>

// One off-screen GL context with a pbuffer surface, made and used on the
// engine's own frame thread. Every call reports EGL failures as a false
// result and a log line; none throws.
class ZuContext : public ZuGBase {
public:
    explicit ZuContext(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuContext() override;

    // Zeroes every field.
    void init();
    // Display, config, an ES 2 context and a width x height pbuffer, made
    // current. A failure undoes what was made and returns false.
    bool createContextOff(int width, int height);
    bool createGLSurfaceOff(int width, int height);
    void destroyGLSurface();
    void destroyContextOff();
    // Makes context and surface current on the calling thread.
    bool active();
    bool swap();
    // Lets go of the calling thread's binding, so that another thread may
    // make the context current (the frame thread does this as it ends).
    void unbind();
    // Releases the thread's binding and everything made; safe on a context
    // that never came up.
    void destroy();

    EGLContext getContextOff() const { return context; }
    EGLSurface getSurface() const { return surface; }
    bool isReady() const { return display != EGL_NO_DISPLAY && context != EGL_NO_CONTEXT && surface != EGL_NO_SURFACE; }

private:
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLConfig* configs = nullptr;
    EGLConfig config = nullptr;
    EGLContext context = EGL_NO_CONTEXT;
    EGLSurface surface = EGL_NO_SURFACE;
};
