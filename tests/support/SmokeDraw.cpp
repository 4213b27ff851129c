#include "support/SmokeDraw.h"

#include "support/GLTest.h"

namespace {

const char* kVertex = R"(
attribute vec2 aPosition;
void main() { gl_Position = vec4(aPosition, 0.0, 1.0); }
)";

const char* kFragment = R"(
precision mediump float;
uniform vec4 uColor;
void main() { gl_FragColor = uColor; }
)";

GLuint compile(GLenum type, const char* source) {
    GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint ok = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &ok);
    EXPECT_EQ(ok, GL_TRUE);
    return shader;
}

} // namespace

// Clears to blue, then fills the left half with a red triangle pair, and
// checks both halves read back: proves the context really rasterises.
void drawLeftHalfAndCheck() {
    GLuint program = glCreateProgram();
    glAttachShader(program, compile(GL_VERTEX_SHADER, kVertex));
    glAttachShader(program, compile(GL_FRAGMENT_SHADER, kFragment));
    glBindAttribLocation(program, 0, "aPosition");
    glLinkProgram(program);
    GLint linked = 0;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    ASSERT_EQ(linked, GL_TRUE);

    glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);

    const float quad[] = {-1, -1, 0, -1, -1, 1, 0, 1};
    glUseProgram(program);
    glUniform4f(glGetUniformLocation(program, "uColor"), 1.0f, 0.0f, 0.0f, 1.0f);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, quad);
    glEnableVertexAttribArray(0);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    glDisableVertexAttribArray(0);
    glDeleteProgram(program);
    ASSERT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));

    std::vector<uint8_t> left = GLTest::readPixels(8, 32, 1, 1);
    std::vector<uint8_t> right = GLTest::readPixels(56, 32, 1, 1);
    EXPECT_EQ(left, (std::vector<uint8_t>{255, 0, 0, 255}));
    EXPECT_EQ(right, (std::vector<uint8_t>{0, 0, 255, 255}));
}

