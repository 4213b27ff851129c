#include "basesys/ZuAsyncGlobalMgr.h"

#include "platform/ZuContext.h"

#include <EGL/egl.h>

void ZuAsyncGlobalMgr::init() {
    if (!context) {
        context = new ZuContext(getApp());
        context->init();
    }
    ZuGlobalMgr::init();
}

void ZuAsyncGlobalMgr::destroy() {
    EGLDisplay display = eglGetCurrentDisplay();
    EGLContext previous = eglGetCurrentContext();
    EGLSurface draw = eglGetCurrentSurface(EGL_DRAW);
    EGLSurface read = eglGetCurrentSurface(EGL_READ);
    // In synchronous use the caller's binding is the engine's own context,
    // which goes below; there is nothing to restore then.
    if (context && previous == context->getContextOff()) previous = EGL_NO_CONTEXT;
    bool own = context && context->active();
    // Without the engine's context no GL object may be deleted: another
    // context's names would go instead.
    if (own || !context || !context->isReady()) ZuGlobalMgr::destroy();
    if (context) {
        context->destroy();
        qzSafeRelease(context);
    }
    if (previous != EGL_NO_CONTEXT && display != EGL_NO_DISPLAY) eglMakeCurrent(display, draw, read, previous);
}

void ZuAsyncGlobalMgr::render() {
    if (!context || !context->active()) return;
    renderScene("");
    context->swap();
}
