#pragma once

#include "platform/ZuHeadlessContext.h"

#include <GLES3/gl3.h>
#include <gtest/gtest.h>
#include <cstdint>
#include <cstring>
#include <vector>

// Base fixture of every GL test: an ES 3 context (or ES 2 for GLES2Test) is
// current on the test thread before the test body runs. A missing EGL or
// GLES is a hard failure, never a skip.
class GLTest : public ::testing::Test {
protected:
    virtual int esMajor() const { return 3; }

    void SetUp() override {
        ASSERT_TRUE(ZuHeadlessContext::instance().makeCurrent(esMajor()))
            << "headless GL unavailable: " << ZuHeadlessContext::instance().error();
        if (esMajor() == 2) {
            // Mesa hands out its newest ES for any request; only the override
            // that the ES 2 test program runs under gives a true ES 2.0 context.
            const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
            ASSERT_TRUE(version && std::strncmp(version, "OpenGL ES 2.0", 13) == 0)
                << "expected an ES 2.0 context, got " << (version ? version : "none")
                << "; run with MESA_GLES_VERSION_OVERRIDE=2.0";
        }
        while (glGetError() != GL_NO_ERROR) {
        }
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glViewport(0, 0, ZuHeadlessContext::kSurfaceWidth, ZuHeadlessContext::kSurfaceHeight);
    }

public:
    // RGBA bytes of the current read framebuffer, rows bottom-up as GL gives them.
    static std::vector<uint8_t> readPixels(int x, int y, int width, int height) {
        std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 4);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(x, y, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    }
};

class GLES2Test : public GLTest {
protected:
    int esMajor() const override { return 2; }
};
