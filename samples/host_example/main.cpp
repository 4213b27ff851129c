// The smallest host: a GL context of its own, the engine started on it, a
// camera frame pushed and the finished frame read back, through the public
// headers only. With a package folder as argument the effect is loaded first.
//   host_example [PACKAGE]
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

const int kWidth = 64, kHeight = 64;
const char* const kScene = "main";
const int kRgba = 4;       // camera frames pushed as RGBA
const int kOutRgba = 1;    // and read back as RGBA

// A surfaceless ES 3 context (Mesa); a phone host makes its window's instead.
bool makeContext() {
    auto getPlatformDisplay =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getPlatformDisplay) return false;
    EGLDisplay display = getPlatformDisplay(0x31DD /* EGL_PLATFORM_SURFACELESS_MESA */, EGL_DEFAULT_DISPLAY, nullptr);
    if (display == EGL_NO_DISPLAY || !eglInitialize(display, nullptr, nullptr)) return false;
    const EGLint configAttributes[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_ES3_BIT,
                                       EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_ALPHA_SIZE, 8,
                                       EGL_DEPTH_SIZE, 16, EGL_STENCIL_SIZE, 8, EGL_NONE};
    EGLConfig config;
    EGLint count = 0;
    if (!eglChooseConfig(display, configAttributes, &config, 1, &count) || count < 1) return false;
    const EGLint surfaceAttributes[] = {EGL_WIDTH, 16, EGL_HEIGHT, 16, EGL_NONE};
    EGLSurface surface = eglCreatePbufferSurface(display, config, surfaceAttributes);
    const EGLint contextAttributes[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_NONE};
    eglBindAPI(EGL_OPENGL_ES_API);
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, contextAttributes);
    return context != EGL_NO_CONTEXT && eglMakeCurrent(display, surface, surface, context);
}

// One frame: tick, then draw.
void frame(ZuAppMain* app) {
    app->update();
    app->directrender("");
}

} // namespace

int main(int argc, char** argv) {
    if (!makeContext()) {
        fprintf(stderr, "host_example: no EGL context\n");
        return 1;
    }
    ZuAppMain* app = new ZuAppMain();
    app->init();
    app->addRespath(QZ_ASSETS_DIR);
    app->initZuBase();

    ZuAppNative* engine = app->getAppInter();
    engine->setCameraDsp(kScene, kWidth, kHeight, 0);
    engine->createLogicSceneFull(kScene, kWidth, kHeight, kWidth, kHeight);
    engine->createBGNode(kScene, kRgba);
    engine->setOutSteamFormate(kScene, kOutRgba, true, false);
    if (argc > 1) engine->loadEffect(kScene, argv[1]);
    frame(app);

    // An orange camera frame; a package may change it, the bare engine not.
    std::vector<uint8_t> camera(kWidth * kHeight * 4), out(kWidth * kHeight * 4, 0);
    for (size_t i = 0; i < camera.size(); i += 4) {
        camera[i] = 240;
        camera[i + 1] = 120;
        camera[i + 2] = 20;
        camera[i + 3] = 255;
    }
    for (int i = 0; i < 10; ++i) { // packages load in the background
        engine->pushCameraData(kScene, camera.data(), static_cast<int>(camera.size()));
        frame(app);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    engine->fetchRenderData(kScene, out.data());
    const uint8_t* centre = &out[(kHeight / 2 * kWidth + kWidth / 2) * 4];
    printf("centre pixel: %d %d %d %d\n", centre[0], centre[1], centre[2], centre[3]);

    app->setState("host_example", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
    // The bare engine gives the frame back as it came in.
    const bool unchanged = centre[0] > 225 && centre[1] > 105 && centre[1] < 135 && centre[2] < 35;
    return argc > 1 || unchanged ? 0 : 1;
}
