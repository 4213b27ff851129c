// The fixed cost of the camera path against a bare GL baseline, in one
// process. Every iteration runs both, back to back, on the same frame:
//
// - baseline: the camera planes uploaded into reused textures, one draw that
//   turns them into RGBA in a framebuffer, one glReadPixels of the host's
//   byte count (RGBA: every row; a planar YUV output: its packed rows)
//   straight into the host's buffer, glFinish;
// - engine: the same planes pushed through ZuAppNative, one tick, one replay,
//   fetchRenderData into the host's buffer, glFinish.
//
// Counters (per frame): base_ms, engine_ms and their ratio; the engine's
// render thread split into engine_cpu_ms (its own code: update, recording,
// material refresh), copy_ms (frame-sized memcpy outside GL: the read-back
// pixel buffer into the output swap) and gl_ms (inside GL calls, timed by the
// wrappers below); fetch_ms, the host's fetchRenderData and glFinish;
// allocs, operator new calls outside GL on the engine frame. Interleaving the two paths keeps the ratio fair on a
// shared machine. Mesa's software GL, so these are CPU milliseconds.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <thread>
#include <vector>

namespace {

// Per-thread accounting shared by the GL wrappers and operator new.
thread_local bool tCounting = false;
thread_local int tInGL = 0;
thread_local int64_t tGLNanos = 0;
thread_local int64_t tAllocs = 0;
thread_local int64_t tCopyNanos = 0;

int64_t nowNanos() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Per entry point totals on the engine frame, printed per case when
// QZ_BENCH_GL_CALLS is set: where the driver time goes.
struct GLEntry {
    const char* name = nullptr;
    int64_t nanos = 0;
    int64_t calls = 0;
};
GLEntry gEntries[64];
int gEntryCount = 0;

GLEntry& glEntry(const char* name) {
    GLEntry& entry = gEntries[gEntryCount < 63 ? gEntryCount++ : 63];
    entry.name = name;
    return entry;
}

struct GLScope {
    GLEntry& entry;
    int64_t begin;
    explicit GLScope(GLEntry& entry) : entry(entry), begin(tCounting && tInGL == 0 ? nowNanos() : 0) { ++tInGL; }
    ~GLScope() {
        if (--tInGL == 0 && begin) {
            int64_t spent = nowNanos() - begin;
            tGLNanos += spent;
            entry.nanos += spent;
            ++entry.calls;
        }
    }
};

void printGLEntries(const char* title, int64_t frames) {
    if (getenv("QZ_BENCH_GL_CALLS") && frames > 0) {
        fprintf(stderr, "%s\n", title);
        for (int i = 0; i < gEntryCount; ++i)
            if (gEntries[i].calls)
                fprintf(stderr, "  %-28s %6.2f calls %8.3f ms\n", gEntries[i].name,
                        double(gEntries[i].calls) / frames, gEntries[i].nanos * 1e-6 / frames);
    }
    for (int i = 0; i < gEntryCount; ++i) gEntries[i].nanos = gEntries[i].calls = 0;
}

} // namespace

// Allocation hook: counts what the engine allocates on the measured thread.
void* operator new(size_t size) {
    if (tCounting && tInGL == 0) ++tAllocs;
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void* operator new[](size_t size) { return operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, size_t) noexcept { std::free(p); }
void operator delete[](void* p, size_t) noexcept { std::free(p); }

// Frame-sized copies the engine makes itself (a read-back buffer into the
// host's swap) are timed apart from its own logic. Small copies stay logic.
extern "C" void* memcpy(void* dst, const void* src, size_t n) {
    using Copy = void* (*)(void*, const void*, size_t);
    static Copy real = nullptr;
    static bool resolving = false;
    if (!real) {
        if (resolving) {  // the look-up itself copied: byte by byte, once
            auto* d = static_cast<volatile char*>(dst);
            auto* s = static_cast<const volatile char*>(src);
            for (size_t i = 0; i < n; ++i) d[i] = s[i];
            return dst;
        }
        resolving = true;
        real = reinterpret_cast<Copy>(dlsym(RTLD_NEXT, "memcpy"));
        resolving = false;
    }
    if (!tCounting || tInGL || n < 65536) return real(dst, src, n);
    int64_t begin = nowNanos();
    void* result = real(dst, src, n);
    tCopyNanos += nowNanos() - begin;
    return result;
}

// GL wrappers: the executable exports them, so the engine's calls land here.
#define QZ_GL_WRAP(ret, name, params, args)                                          \
    extern "C" ret name params {                                                    \
        static auto real = reinterpret_cast<ret(*) params>(dlsym(RTLD_NEXT, #name)); \
        static GLEntry& entry = glEntry(#name);                                     \
        GLScope scope(entry);                                                       \
        return real args;                                                           \
    }

QZ_GL_WRAP(void, glActiveTexture, (GLenum a), (a))
QZ_GL_WRAP(void, glBindBuffer, (GLenum a, GLuint b), (a, b))
QZ_GL_WRAP(void, glBindFramebuffer, (GLenum a, GLuint b), (a, b))
QZ_GL_WRAP(void, glBindTexture, (GLenum a, GLuint b), (a, b))
QZ_GL_WRAP(void, glBlendFunc, (GLenum a, GLenum b), (a, b))
QZ_GL_WRAP(GLenum, glCheckFramebufferStatus, (GLenum a), (a))
QZ_GL_WRAP(void, glClear, (GLbitfield a), (a))
QZ_GL_WRAP(void, glClearColor, (GLfloat a, GLfloat b, GLfloat c, GLfloat d), (a, b, c, d))
QZ_GL_WRAP(void, glClearStencil, (GLint a), (a))
QZ_GL_WRAP(void, glDepthFunc, (GLenum a), (a))
QZ_GL_WRAP(void, glDisable, (GLenum a), (a))
QZ_GL_WRAP(void, glDisableVertexAttribArray, (GLuint a), (a))
QZ_GL_WRAP(void, glDrawArrays, (GLenum a, GLint b, GLsizei c), (a, b, c))
QZ_GL_WRAP(void, glDrawElements, (GLenum a, GLsizei b, GLenum c, const void* d), (a, b, c, d))
QZ_GL_WRAP(void, glEnable, (GLenum a), (a))
QZ_GL_WRAP(void, glEnableVertexAttribArray, (GLuint a), (a))
QZ_GL_WRAP(void, glFinish, (), ())
QZ_GL_WRAP(void, glFlush, (), ())
QZ_GL_WRAP(void, glFramebufferTexture2D, (GLenum a, GLenum b, GLenum c, GLuint d, GLint e), (a, b, c, d, e))
QZ_GL_WRAP(void, glFramebufferRenderbuffer, (GLenum a, GLenum b, GLenum c, GLuint d), (a, b, c, d))
QZ_GL_WRAP(void, glFrontFace, (GLenum a), (a))
QZ_GL_WRAP(void, glCullFace, (GLenum a), (a))
QZ_GL_WRAP(void, glCopyTexSubImage2D, (GLenum a, GLint b, GLint c, GLint d, GLint e, GLint f, GLsizei g, GLsizei h),
           (a, b, c, d, e, f, g, h))
QZ_GL_WRAP(void, glBlitFramebuffer,
           (GLint a, GLint b, GLint c, GLint d, GLint e, GLint f, GLint g, GLint h, GLbitfield i, GLenum j),
           (a, b, c, d, e, f, g, h, i, j))
QZ_GL_WRAP(void, glScissor, (GLint a, GLint b, GLsizei c, GLsizei d), (a, b, c, d))
QZ_GL_WRAP(GLint, glGetUniformLocation, (GLuint a, const GLchar* b), (a, b))
QZ_GL_WRAP(GLint, glGetAttribLocation, (GLuint a, const GLchar* b), (a, b))
QZ_GL_WRAP(void, glLineWidth, (GLfloat a), (a))
QZ_GL_WRAP(void*, glMapBufferRange, (GLenum a, GLintptr b, GLsizeiptr c, GLbitfield d), (a, b, c, d))
QZ_GL_WRAP(void, glPixelStorei, (GLenum a, GLint b), (a, b))
QZ_GL_WRAP(void, glReadPixels, (GLint a, GLint b, GLsizei c, GLsizei d, GLenum e, GLenum f, void* g),
           (a, b, c, d, e, f, g))
QZ_GL_WRAP(void, glStencilFunc, (GLenum a, GLint b, GLuint c), (a, b, c))
QZ_GL_WRAP(void, glStencilOp, (GLenum a, GLenum b, GLenum c), (a, b, c))
QZ_GL_WRAP(void, glTexImage2D,
           (GLenum a, GLint b, GLint c, GLsizei d, GLsizei e, GLint f, GLenum g, GLenum h, const void* i),
           (a, b, c, d, e, f, g, h, i))
QZ_GL_WRAP(void, glTexParameteri, (GLenum a, GLenum b, GLint c), (a, b, c))
QZ_GL_WRAP(void, glTexSubImage2D,
           (GLenum a, GLint b, GLint c, GLint d, GLsizei e, GLsizei f, GLenum g, GLenum h, const void* i),
           (a, b, c, d, e, f, g, h, i))
QZ_GL_WRAP(void, glUniform1f, (GLint a, GLfloat b), (a, b))
QZ_GL_WRAP(void, glUniform1i, (GLint a, GLint b), (a, b))
QZ_GL_WRAP(void, glUniform2f, (GLint a, GLfloat b, GLfloat c), (a, b, c))
QZ_GL_WRAP(void, glUniform2fv, (GLint a, GLsizei b, const GLfloat* c), (a, b, c))
QZ_GL_WRAP(void, glUniform3fv, (GLint a, GLsizei b, const GLfloat* c), (a, b, c))
QZ_GL_WRAP(void, glUniform4f, (GLint a, GLfloat b, GLfloat c, GLfloat d, GLfloat e), (a, b, c, d, e))
QZ_GL_WRAP(void, glUniform4fv, (GLint a, GLsizei b, const GLfloat* c), (a, b, c))
QZ_GL_WRAP(void, glUniformMatrix4fv, (GLint a, GLsizei b, GLboolean c, const GLfloat* d), (a, b, c, d))
QZ_GL_WRAP(GLboolean, glUnmapBuffer, (GLenum a), (a))
QZ_GL_WRAP(void, glUseProgram, (GLuint a), (a))
QZ_GL_WRAP(void, glVertexAttribPointer, (GLuint a, GLint b, GLenum c, GLboolean d, GLsizei e, const void* f),
           (a, b, c, d, e, f))
QZ_GL_WRAP(void, glViewport, (GLint a, GLint b, GLsizei c, GLsizei d), (a, b, c, d))

namespace {

const char* const kScene = "bench";

// Host codes of the camera formats and the output formats measured.
enum InFormat { kInNV21 = 0, kInRGBA = 4 };
enum OutFormat { kOutRGBA = 1, kOutNV21 = 2 };

const char* const kVertex = R"(
attribute vec2 aPos;
varying vec2 vUV;
void main() { vUV = aPos * 0.5 + 0.5; gl_Position = vec4(aPos, 0.0, 1.0); })";

const char* const kFragmentNV21 = R"(
precision mediump float;
varying vec2 vUV;
uniform sampler2D yTex;
uniform sampler2D uvTex;
void main() {
    float y = (texture2D(yTex, vUV).r - 16.0 / 255.0) * 1.164;
    vec4 c = texture2D(uvTex, vUV);
    float v = c.r - 0.5, u = c.a - 0.5;
    gl_FragColor = vec4(y + 1.596 * v, y - 0.392 * u - 0.813 * v, y + 2.017 * u, 1.0);
})";

const char* const kFragmentRGBA = R"(
precision mediump float;
varying vec2 vUV;
uniform sampler2D yTex;
void main() { gl_FragColor = texture2D(yTex, vUV); })";

GLuint compile(GLenum type, const char* source) {
    GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    return shader;
}

// The bare path: what a host that needs nothing but the conversion would do.
class BareFrame {
public:
    BareFrame(int width, int height, InFormat in, size_t readBytes) : width(width), height(height), in(in) {
        rows = static_cast<int>(readBytes / (static_cast<size_t>(width) * 4));
        program = glCreateProgram();
        glAttachShader(program, compile(GL_VERTEX_SHADER, kVertex));
        glAttachShader(program, compile(GL_FRAGMENT_SHADER, in == kInNV21 ? kFragmentNV21 : kFragmentRGBA));
        glBindAttribLocation(program, 0, "aPos");
        glLinkProgram(program);
        glUseProgram(program);
        glUniform1i(glGetUniformLocation(program, "yTex"), 0);
        glUniform1i(glGetUniformLocation(program, "uvTex"), 1);
        glGenTextures(2, planes);
        if (in == kInNV21) {
            makePlane(planes[0], GL_LUMINANCE, width, height);
            makePlane(planes[1], GL_LUMINANCE_ALPHA, width / 2, height / 2);
        } else {
            makePlane(planes[0], GL_RGBA, width, height);
        }
        glGenTextures(1, &target);
        makePlane(target, GL_RGBA, width, height);
        glGenFramebuffers(1, &fbo);
        glBindFramebuffer(GL_FRAMEBUFFER, fbo);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
    }
    ~BareFrame() {
        glDeleteFramebuffers(1, &fbo);
        glDeleteTextures(1, &target);
        glDeleteTextures(2, planes);
        glDeleteProgram(program);
    }

    void frame(const uint8_t* camera, uint8_t* host) {
        static const float kQuad[] = {-1, -1, 1, -1, -1, 1, 1, 1};
        glBindFramebuffer(GL_FRAMEBUFFER, fbo);
        glViewport(0, 0, width, height);
        glUseProgram(program);
        glActiveTexture(GL_TEXTURE0);
        glBindTexture(GL_TEXTURE_2D, planes[0]);
        if (in == kInNV21) {
            glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_LUMINANCE, GL_UNSIGNED_BYTE, camera);
            glActiveTexture(GL_TEXTURE1);
            glBindTexture(GL_TEXTURE_2D, planes[1]);
            glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width / 2, height / 2, GL_LUMINANCE_ALPHA, GL_UNSIGNED_BYTE,
                            camera + static_cast<size_t>(width) * height);
            glActiveTexture(GL_TEXTURE0);
        } else {
            glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, camera);
        }
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        glEnableVertexAttribArray(0);
        glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, kQuad);
        glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        glReadPixels(0, 0, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, host);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glFinish();
    }

private:
    static void makePlane(GLuint name, GLenum format, int w, int h) {
        glBindTexture(GL_TEXTURE_2D, name);
        glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), w, h, 0, format, GL_UNSIGNED_BYTE, nullptr);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    }

    int width, height, rows = 0;
    InFormat in;
    GLuint program = 0, planes[2] = {0, 0}, target = 0, fbo = 0;
};

// The engine's camera path as a host drives it.
class EngineFrame {
public:
    EngineFrame(int width, int height, InFormat in, OutFormat out, bool look) {
        ZuLog::setLevel(ZU_LOG_WARN);
        app = new ZuAppMain();
        app->init();
        app->addRespath(QZ_BENCH_ASSETS);
        app->initZuBase();
        ZuConfig* config = app->getGlobalMgr()->getConfig();
        config->glversion = 0x30000;
        Camera* camera = config->getCamera(kScene);
        camera->width = width;
        camera->height = height;
        camera->angle = 0;
        ZuAppNative* native = app->getAppInter();
        native->createLogicSceneFull(kScene, width, height, width, height);
        native->createBGNode(kScene, in);
        native->setOutSteamFormate(kScene, out, true, false);
        app->update();
        app->directrender("");
        if (look) {
            ZuNode* node = app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuBeauFilterNode", kScene,
                                                                                     "look");
            ZuScene* scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
            if (node && scene) scene->addChild(node);
            if (auto* filter = dynamic_cast<ZuBeauFilterNode*>(node)) {
                filter->setFilterType(ZUBEAUFILTER_SNOW);
                for (int i = 0; i < 1000 && !filter->getFilterTex(0)->getbLoad(); ++i) {
                    app->update();
                    app->directrender("");
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                }
            }
        }
    }
    ~EngineFrame() {
        app->setState("bench", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }

    // The render thread's share (update and replay), then the host's fetch.
    void render(const std::vector<uint8_t>& camera) {
        ZuAppNative* native = app->getAppInter();
        native->pushCameraData(kScene, camera.data(), static_cast<int>(camera.size()));
        app->update();
        app->directrender("");
    }
    void fetch(uint8_t* host) {
        app->getAppInter()->fetchRenderData(kScene, host);
        glFinish();
    }

private:
    ZuAppMain* app = nullptr;
};

struct Totals {
    int64_t base = 0, engine = 0, gl = 0, copy = 0, fetch = 0, allocs = 0;
};

void BM_CameraPath(benchmark::State& state) {
    const int width = static_cast<int>(state.range(0));
    const int height = width == 720 ? 1280 : 1920;
    const auto in = static_cast<InFormat>(state.range(1));
    const auto out = static_cast<OutFormat>(state.range(2));
    const bool look = state.range(3) != 0;
    if (!ZuHeadlessContext::instance().makeCurrent(3)) {
        state.SkipWithError("headless GL unavailable");
        return;
    }
    const size_t pixels = static_cast<size_t>(width) * height;
    std::vector<uint8_t> camera(in == kInNV21 ? pixels * 3 / 2 : pixels * 4, 128);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) camera[static_cast<size_t>(y) * width + x] = static_cast<uint8_t>(x ^ y);
    std::vector<uint8_t> host(out == kOutRGBA ? pixels * 4 : pixels * 3 / 2);
    // The bare path reads what the host receives: every RGBA row, or the
    // packed rows of a planar frame.
    size_t readBytes = out == kOutRGBA ? pixels * 4 : static_cast<size_t>(width) * (height * 3 / 8) * 4;

    BareFrame bare(width, height, in, readBytes);
    std::vector<uint8_t> bareHost(readBytes);
    EngineFrame engine(width, height, in, out, look);
    // Programs linked, pixel buffers in use, pools settled.
    for (int i = 0; i < 4; ++i) {
        bare.frame(camera.data(), bareHost.data());
        engine.render(camera);
        engine.fetch(host.data());
    }

    printGLEntries("", 0);
    Totals totals;
    for (auto _ : state) {
        int64_t t0 = nowNanos();
        bare.frame(camera.data(), bareHost.data());
        int64_t t1 = nowNanos();
        tGLNanos = 0;
        tCopyNanos = 0;
        tAllocs = 0;
        tCounting = true;
        engine.render(camera);
        tCounting = false;
        int64_t t2 = nowNanos();
        engine.fetch(host.data());
        int64_t t3 = nowNanos();
        totals.base += t1 - t0;
        totals.engine += t3 - t1;
        totals.gl += tGLNanos;
        totals.copy += tCopyNanos;
        totals.fetch += t3 - t2;
        totals.allocs += tAllocs;
        state.SetIterationTime(static_cast<double>(t3 - t1) * 1e-9);
    }
    const double n = static_cast<double>(state.iterations());
    const double ms = 1e-6 / n;
    state.counters["base_ms"] = totals.base * ms;
    state.counters["engine_ms"] = totals.engine * ms;
    state.counters["ratio"] = static_cast<double>(totals.engine) / static_cast<double>(totals.base);
    state.counters["engine_cpu_ms"] = (totals.engine - totals.fetch - totals.gl - totals.copy) * ms;
    state.counters["copy_ms"] = totals.copy * ms;
    state.counters["gl_ms"] = totals.gl * ms;
    state.counters["fetch_ms"] = totals.fetch * ms;
    state.counters["allocs"] = static_cast<double>(totals.allocs) / n;
    char label[64];
    snprintf(label, sizeof label, "%s in, %s out%s", in == kInNV21 ? "NV21" : "RGBA", out == kOutRGBA ? "RGBA" : "NV21",
             look ? ", look" : "");
    state.SetLabel(label);
    printGLEntries(label, state.iterations());
}
BENCHMARK(BM_CameraPath)
    ->ArgsProduct({{720, 1080}, {kInNV21, kInRGBA}, {kOutRGBA, kOutNV21}, {0}})
    ->Args({720, kInNV21, kOutRGBA, 1})
    ->ArgNames({"width", "in", "out", "look"})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

} // namespace
