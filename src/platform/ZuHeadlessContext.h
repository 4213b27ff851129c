#pragma once

#include <EGL/egl.h>
#include <string>

// A GL context with no window: one EGL display on Mesa's surfaceless
// platform, a GLES context per major version (3 and 2) and a small pbuffer as
// the default framebuffer. Used by the desktop host and the tests; contexts
// are made lazily and kept until shutdown().
class ZuHeadlessContext {
public:
    static ZuHeadlessContext& instance();

    // Makes a context of that major version (2 or 3) current on this thread.
    // On failure returns false and fills error(); it never skips silently.
    bool makeCurrent(int esMajor);
    void releaseCurrent();
    // Destroys the contexts and terminates the display, which stops the
    // driver's worker threads; a later makeCurrent starts afresh. Test
    // programs call it before exit so that the exit-time leak scan finds a
    // process with one thread.
    void shutdown();

    const std::string& error() const { return m_error; }
    EGLDisplay display() const { return m_display; }

    static constexpr int kSurfaceWidth = 64;
    static constexpr int kSurfaceHeight = 64;

private:
    ZuHeadlessContext() = default;
    bool openDisplay();
    bool createContext(int esMajor);

    EGLDisplay m_display = EGL_NO_DISPLAY;
    EGLConfig m_config = nullptr;
    EGLSurface m_surface = EGL_NO_SURFACE;
    EGLContext m_contexts[2] = {EGL_NO_CONTEXT, EGL_NO_CONTEXT}; // ES2, ES3
    bool m_triedDisplay = false;
    std::string m_error;
};
