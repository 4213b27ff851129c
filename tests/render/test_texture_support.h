#pragma once

// Helpers of the texture, framebuffer and PNG tests: an engine with its
// managers, the committed test images and a plain textured draw.

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuTextureEvent.h"
#include "operate/ZuOperateMgr.h"

#include <GLES3/gl3.h>
#include <gtest/gtest.h>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace texsupport {

inline std::string dataDir() { return std::string(QZ_SOURCE_DIR) + "/tests/render/data/"; }

inline std::vector<uint8_t> readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// What a .expect file holds: channels, size, decoded rows top first.
struct Expected {
    int channels = 0, width = 0, height = 0;
    std::vector<uint8_t> bytes;
};

inline Expected readExpected(const std::string& name) {
    std::vector<uint8_t> raw = readFile(dataDir() + name + ".expect");
    Expected e;
    if (raw.size() < 5) return e;
    e.channels = raw[0];
    e.width = raw[1] | (raw[2] << 8);
    e.height = raw[3] | (raw[4] << 8);
    e.bytes.assign(raw.begin() + 5, raw.end());
    return e;
}

// The images with a known decoding, every colour type and depth.
inline const std::vector<std::string>& goodImages() {
    static const std::vector<std::string> names = {
        "grey1", "grey2", "grey4", "grey8", "grey16", "grey8_trns", "grey4_interlaced",
        "rgb8", "rgb16", "rgb8_trns", "palette1", "palette2", "palette4", "palette8",
        "palette8_trns", "palette2_trns", "greyalpha8", "greyalpha16", "rgba8", "rgba16",
        "rgba8_interlaced", "rgba8_1x1", "quadrants"};
    return names;
}

inline const std::vector<std::string>& brokenImages() {
    static const std::vector<std::string> names = {"bad_signature", "truncated", "bad_crc",
                                                   "bad_zlib", "empty", "short"};
    return names;
}

// A started engine (load thread, events, files) with the data folder as a search path.
class Engine {
public:
    Engine() {
        app = new ZuAppMain();
        app->init();
        app->addRespath(dataDir().c_str());
        app->initZuBase();
    }
    ~Engine() {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    // Runs frame operations until done() or two seconds pass.
    bool pumpUntil(const std::function<bool()>& done) {
        auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (std::chrono::steady_clock::now() < end) {
            app->getGlobalMgr()->getOperateMgr()->update(16.0f);
            if (done()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return false;
    }
    ZuAppMain* app = nullptr;
};

// Collects the uids of texture events.
class TextureEventSpy : public ZuEventProc {
public:
    explicit TextureEventSpy(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event->type == ZU_EVENT_TEXTURE) uids.push_back(static_cast<ZuTextureEvent*>(event)->textureUid);
        return true;
    }
    std::vector<int> uids;
};

// Draws tex over the whole viewport (x, y, w, h) of the bound framebuffer,
// each fragment sampling the texel under it when the viewport has the
// texture's size. GLSL ES 1.00, so ES 2 and ES 3 alike.
inline void drawTexture(GLuint tex, int x, int y, int w, int h) {
    static GLuint program = 0;
    if (!program || !glIsProgram(program)) {
        const char* vs =
            "attribute vec2 aPosition;\n"
            "varying vec2 vUv;\n"
            "void main() { vUv = aPosition * 0.5 + 0.5; gl_Position = vec4(aPosition, 0.0, 1.0); }\n";
        // Rows are uploaded top first, so t = 0 is the image's top row: flip
        // so that the top of the image lands at the top of the framebuffer.
        const char* fs =
            "precision mediump float;\n"
            "varying vec2 vUv;\n"
            "uniform sampler2D aTexture0;\n"
            "void main() { gl_FragColor = texture2D(aTexture0, vec2(vUv.x, 1.0 - vUv.y)); }\n";
        auto compile = [](GLenum kind, const char* src) {
            GLuint s = glCreateShader(kind);
            glShaderSource(s, 1, &src, nullptr);
            glCompileShader(s);
            return s;
        };
        program = glCreateProgram();
        glAttachShader(program, compile(GL_VERTEX_SHADER, vs));
        glAttachShader(program, compile(GL_FRAGMENT_SHADER, fs));
        glBindAttribLocation(program, 0, "aPosition");
        glLinkProgram(program);
    }
    static const float quad[] = {-1, -1, 1, -1, -1, 1, 1, 1};
    glUseProgram(program);
    glViewport(x, y, w, h);
    glDisable(GL_BLEND);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_STENCIL_TEST);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, tex);
    glUniform1i(glGetUniformLocation(program, "aTexture0"), 0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, quad);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    glDisableVertexAttribArray(0);
}

// RGBA rows of the bound framebuffer, flipped to top first.
inline std::vector<uint8_t> readTopFirst(int w, int h) {
    std::vector<uint8_t> px(static_cast<size_t>(w) * h * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, w, h, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
    std::vector<uint8_t> out(px.size());
    for (int y = 0; y < h; ++y)
        std::copy(px.begin() + static_cast<long>(y) * w * 4, px.begin() + static_cast<long>(y + 1) * w * 4,
                  out.begin() + static_cast<long>(h - 1 - y) * w * 4);
    return out;
}

// Expected bytes widened to RGBA (RGB gets alpha 255).
inline std::vector<uint8_t> asRgba(const Expected& e) {
    if (e.channels == 4) return e.bytes;
    std::vector<uint8_t> out;
    for (size_t i = 0; i + 2 < e.bytes.size(); i += 3) {
        out.insert(out.end(), {e.bytes[i], e.bytes[i + 1], e.bytes[i + 2], 255});
    }
    return out;
}

} // namespace texsupport
