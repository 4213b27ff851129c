#include "support/GLTest.h"
#include "support/SmokeDraw.h"

#include <cstring>

class HeadlessGLES3 : public GLTest {};

TEST_F(HeadlessGLES3, ContextIsES3AndDrawsIntoThePbuffer) {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    ASSERT_NE(version, nullptr);
    EXPECT_NE(std::strstr(version, "OpenGL ES 3"), nullptr) << version;
    drawLeftHalfAndCheck();
}
