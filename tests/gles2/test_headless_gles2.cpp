#include "support/GLTest.h"
#include "support/SmokeDraw.h"

#include <cstring>

// This program runs with MESA_GLES_VERSION_OVERRIDE=2.0 so that its contexts
// are true ES 2.0 ones, without the ES 3 entry points.
class HeadlessGLES2 : public GLES2Test {};

TEST_F(HeadlessGLES2, ContextIsES2AndDrawsIntoThePbuffer) {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    ASSERT_NE(version, nullptr);
    EXPECT_NE(std::strstr(version, "OpenGL ES 2"), nullptr) << version;
    drawLeftHalfAndCheck();
}
