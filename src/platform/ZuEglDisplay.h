#pragma once

#include <EGL/egl.h>

// The EGL display that the engine's own contexts live on. On Android it is
// the default display, whose initialize and terminate the system counts. On
// Linux it is Mesa's surfaceless display, shared by every user in the
// process (the headless test context included), so the count is kept here:
// the display is terminated with its last user, never under another's feet.
class ZuEglDisplay {
public:
    // An initialized display, or EGL_NO_DISPLAY (logged) when none comes up.
    static EGLDisplay acquire();
    // Gives back one acquire; the last one terminates the display.
    static void release(EGLDisplay display);
    // Users holding the display now (tests check that nothing leaked).
    static int users();
};
