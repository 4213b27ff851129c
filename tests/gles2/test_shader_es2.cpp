#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/shader/ZuShaderMgr.h"
#include "render/shader/cfgShader.h"
#include "support/GLTest.h"

#include <cmath>
#include <cstring>

// The program table and the screen meshes on a true ES 2.0 context.
class ShaderES2 : public GLES2Test {};

TEST_F(ShaderES2, EveryProgramOfTheTableLinks) {
    const char* extensions = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    bool external = extensions && std::strstr(extensions, "GL_OES_EGL_image_external");
    ZuShaderMgr* shaders = new ZuShaderMgr(nullptr);
    shaders->init();
    const auto& table = cfgShader::table();
    for (auto it = table.getIterator(); !it.atEnd(); ++it) {
        const char* key = it->getKey().c_str();
        if (!external && std::strcmp(key, "realcamera") == 0) continue;
        GLuint program = shaders->getProgramme(key);
        ASSERT_NE(program, 0u) << key;
        GLint linked = 0;
        glGetProgramiv(program, GL_LINK_STATUS, &linked);
        EXPECT_EQ(linked, GL_TRUE) << key;
    }
    shaders->destroy();
    shaders->release();
}

TEST_F(ShaderES2, YuvPlanesConvertThroughTheRotatedMesh) {
    ZuShaderMgr* shaders = new ZuShaderMgr(nullptr);
    shaders->init();
    ZuRenderData* data = new ZuRenderData();
    data->init();

    // A 2-texel-wide Y plane: left dark, right bright; chroma neutral.
    const uint8_t yPlane[2] = {16, 235};
    const uint8_t neutral[2] = {128, 128};
    GLuint tex[2];
    glGenTextures(2, tex);
    const uint8_t* pixels[2] = {yPlane, neutral};
    const GLenum formats[2] = {GL_LUMINANCE, GL_LUMINANCE_ALPHA};
    const int widths[2] = {2, 1};
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    for (int i = 0; i < 2; ++i) {
        glActiveTexture(GL_TEXTURE0 + i);
        glBindTexture(GL_TEXTURE_2D, tex[i]);
        glTexImage2D(GL_TEXTURE_2D, 0, formats[i], widths[i], 1, 0, formats[i], GL_UNSIGNED_BYTE, pixels[i]);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    }
    GLuint program = shaders->getProgramme("yuv2rgb12");
    ASSERT_NE(program, 0u);
    glUseProgram(program);
    glUniform2f(glGetUniformLocation(program, "texcoordClip"), 1, 1);
    glUniform1i(glGetUniformLocation(program, "aTexture0"), 0);
    glUniform1i(glGetUniformLocation(program, "aTexture1"), 1);

    // Video range: Y 16 is black, Y 235 white (1.164 x 219/255 = 0.99977).
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    data->meshFull->render();
    std::vector<uint8_t> left = readPixels(8, 32, 1, 1);
    std::vector<uint8_t> right = readPixels(56, 32, 1, 1);
    for (int c = 0; c < 3; ++c) {
        EXPECT_LE(left[c], 1) << c;
        EXPECT_GE(right[c], 254) << c;
    }
    // Rotated by 180 degrees the bright half moves to the left.
    glClear(GL_COLOR_BUFFER_BIT);
    data->meshRot180->render();
    EXPECT_GE(readPixels(8, 32, 1, 1)[0], 254);
    EXPECT_LE(readPixels(56, 32, 1, 1)[0], 1);
    // Rotated by 90 degrees the texture's x runs up the screen (bottom
    // vertices carry u = 0, top ones u = 1).
    glClear(GL_COLOR_BUFFER_BIT);
    data->meshRot90->render();
    EXPECT_LE(readPixels(32, 8, 1, 1)[0], 1);
    EXPECT_GE(readPixels(32, 56, 1, 1)[0], 254);

    GLint max = 0;
    glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &max);
    for (GLint i = 0; i < max; ++i) {
        GLint on = 0;
        glGetVertexAttribiv(i, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &on);
        EXPECT_FALSE(on) << "attribute " << i << " left enabled";
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    glActiveTexture(GL_TEXTURE0);
    glDeleteTextures(2, tex);
    data->release();
    shaders->destroy();
    shaders->release();
}
