#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/shader/ZuShaderMgr.h"
#include "render/shader/cfgShader.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"

#include <cmath>
#include <cstring>
#include <string>

namespace {

bool hasExtension(const char* name) {
    const char* all = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    return all && std::strstr(all, name);
}

GLuint makeTexture(GLenum format, int w, int h, const uint8_t* pixels) {
    GLuint tex = 0;
    glGenTextures(1, &tex);
    glBindTexture(GL_TEXTURE_2D, tex);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, format, w, h, 0, format, GL_UNSIGNED_BYTE, pixels);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return tex;
}

int clampByte(double v) {
    long r = std::lround(v * 255.0);
    return r < 0 ? 0 : (r > 255 ? 255 : static_cast<int>(r));
}

// BT.601 video range to RGB, from byte planes.
void yuvToRgb(int y, int u, int v, int out[3]) {
    double yy = (y / 255.0 - 16.0 / 255.0) * 1.164;
    double uu = u / 255.0 - 0.5, vv = v / 255.0 - 0.5;
    out[0] = clampByte(yy + 1.596 * vv);
    out[1] = clampByte(yy - 0.392 * uu - 0.813 * vv);
    out[2] = clampByte(yy + 2.017 * uu);
}

// RGB bytes to video-range Y, U, V bytes.
void rgbToYuv(const uint8_t rgb[3], int out[3]) {
    double r = rgb[0] / 255.0, g = rgb[1] / 255.0, b = rgb[2] / 255.0;
    out[0] = clampByte(0.256816 * r + 0.504154 * g + 0.0979137 * b + 0.0625);
    out[1] = clampByte(-0.148246 * r - 0.29102 * g + 0.439266 * b + 0.5);
    out[2] = clampByte(0.439271 * r - 0.367833 * g - 0.071438 * b + 0.5);
}

class ShaderPrograms : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        shaders = new ZuShaderMgr(nullptr);
        shaders->init();
        data = new ZuRenderData();
        data->init();
    }
    void TearDown() override {
        data->release();
        shaders->destroy();
        shaders->release();
    }

    // Draws meshFull with a key's program and slots 0..2 sampling the textures.
    void drawFull(const char* key, std::initializer_list<GLuint> textures) {
        GLuint program = shaders->getProgramme(key);
        ASSERT_NE(program, 0u) << key;
        glUseProgram(program);
        glUniform2f(glGetUniformLocation(program, "texcoordClip"), 1, 1);
        int unit = 0;
        for (GLuint tex : textures) {
            glActiveTexture(GL_TEXTURE0 + unit);
            glBindTexture(GL_TEXTURE_2D, tex);
            glUniform1i(glGetUniformLocation(program, ("aTexture" + std::to_string(unit)).c_str()), unit);
            ++unit;
        }
        glUniform1f(glGetUniformLocation(program, "width"), 64.0f);
        glUniform1f(glGetUniformLocation(program, "height"), 64.0f);
        glClearColor(0, 0, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        // The context is shared by the whole program: a test before this one
        // may have left blending or culling on.
        glDisable(GL_BLEND);
        glDisable(GL_CULL_FACE);
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_STENCIL_TEST);
        data->meshFull->render();
        glActiveTexture(GL_TEXTURE0);
    }

    ZuShaderMgr* shaders = nullptr;
    ZuRenderData* data = nullptr;
};

void expectNear(const std::vector<uint8_t>& got, const int want[3], const char* what) {
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(got[c], want[c], 1) << what << " channel " << c;
}

} // namespace

TEST_F(ShaderPrograms, EveryProgramOfTheTableLinksOnES3) {
    bool external = hasExtension("GL_OES_EGL_image_external");
    const auto& table = cfgShader::table();
    EXPECT_EQ(shaders->getCellCount(), table.size());
    for (auto it = table.getIterator(); !it.atEnd(); ++it) {
        const char* key = it->getKey().c_str();
        if (!external && std::strcmp(key, "realcamera") == 0) continue;
        GLuint program = shaders->getProgramme(key);
        ASSERT_NE(program, 0u) << key;
        GLint linked = 0;
        glGetProgramiv(program, GL_LINK_STATUS, &linked);
        EXPECT_EQ(linked, GL_TRUE) << key;
        // The shared layout: every program binds its position to location 0.
        GLint position = glGetAttribLocation(program, "aPosition");
        EXPECT_TRUE(position == 0 || position == -1) << key;
    }
}

TEST_F(ShaderPrograms, RequestsAreCachedAndKeysCaseSensitive) {
    LogCapture log;
    GLuint first = shaders->getProgramme("screennor");
    ASSERT_NE(first, 0u);
    EXPECT_EQ(shaders->getProgramme(qz::string("screennor")), first);
    EXPECT_EQ(log.count("shader success: create program screennor"), 1) << "compiled once";
    int before = static_cast<int>(log.lines().size());
    EXPECT_EQ(shaders->getProgramme("ScreenNor"), 0u);
    EXPECT_EQ(shaders->getProgramme(static_cast<const char*>(nullptr)), 0u);
    EXPECT_EQ(static_cast<int>(log.lines().size()), before) << "an unknown key logs nothing";
    // Attributes sit where the vertex formats put them.
    GLuint tinted = shaders->getProgramme("NormalV2CT1");
    EXPECT_EQ(glGetAttribLocation(tinted, "aColor"), 4);
    EXPECT_EQ(glGetAttribLocation(tinted, "aTexcoord0"), 6);
}

TEST_F(ShaderPrograms, CompileFailureIsLoggedAndRetried) {
    LogCapture log;
    ASSERT_TRUE(shaders->addShaderCell("brokenFs", "attribute vec4 aPosition;\nvoid main() { gl_Position = aPosition; }\n",
                                       "precision mediump float;\nvoid main() { gl_FragColor = undefinedThing; }\n"));
    EXPECT_FALSE(shaders->addShaderCell("brokenFs", "a", "b")) << "an existing key is kept";
    EXPECT_EQ(shaders->getProgramme("brokenFs"), 0u);
    EXPECT_EQ(log.count("shader error in program: brokenFs", ZU_LOG_ERROR), 1);
    EXPECT_GE(log.count("undefinedThing", ZU_LOG_ERROR), 1) << "the compiler's message is logged";
    EXPECT_EQ(log.count("shader error:create program brokenFs", ZU_LOG_ERROR), 1);
    EXPECT_EQ(shaders->getProgramme("brokenFs"), 0u);
    EXPECT_EQ(log.count("shader error in program: brokenFs", ZU_LOG_ERROR), 2) << "compiled again";
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ShaderPrograms, LinkFailureKeepsItsIdAndIsNotRebuilt) {
    LogCapture log;
    // Both stages compile; the fragment stage reads a varying nobody writes.
    ASSERT_TRUE(shaders->addShaderCell("brokenLink", "attribute vec4 aPosition;\nvoid main() { gl_Position = aPosition; }\n",
                                       "precision mediump float;\nvarying vec4 vMissing;\nvoid main() { gl_FragColor = vMissing; }\n"));
    GLuint program = shaders->getProgramme("brokenLink");
    EXPECT_NE(program, 0u);
    EXPECT_EQ(log.count("link status:", ZU_LOG_ERROR), 1);
    EXPECT_EQ(shaders->getProgramme("brokenLink"), program);
    EXPECT_EQ(log.count("link status:", ZU_LOG_ERROR), 1) << "not rebuilt";
    while (glGetError() != GL_NO_ERROR) {
    }
}

TEST_F(ShaderPrograms, DecodingIsItsOwnInverse) {
    char empty[1] = {'x'};
    ZuShaderMgr::decoding(empty, 0);
    EXPECT_EQ(empty[0], 'x');
    ZuShaderMgr::decoding(nullptr, 10);
    char text[80];
    for (int i = 0; i < 80; ++i) text[i] = static_cast<char>(i * 7);
    char copy[80];
    std::memcpy(copy, text, sizeof text);
    ZuShaderMgr::decoding(text, sizeof text);
    EXPECT_EQ(text[0], static_cast<char>(0 ^ '7'));
    EXPECT_EQ(text[36], static_cast<char>((36 * 7) ^ '7')) << "the key repeats every 36 bytes";
    EXPECT_EQ(text[1], static_cast<char>(7 ^ 'A'));
    ZuShaderMgr::decoding(text, sizeof text);
    EXPECT_EQ(std::memcmp(text, copy, sizeof text), 0);
}

TEST_F(ShaderPrograms, CameraPlanesConvertToRgb) {
    const uint8_t y = 150, u = 90, v = 200;
    int want[3];
    yuvToRgb(y, u, v, want);
    GLuint yTex = makeTexture(GL_LUMINANCE, 1, 1, &y);
    GLuint uTex = makeTexture(GL_LUMINANCE, 1, 1, &u);
    GLuint vTex = makeTexture(GL_LUMINANCE, 1, 1, &v);
    drawFull("yuv2rgb", {yTex, vTex, uTex}); // slot 1 V, slot 2 U
    expectNear(readPixels(20, 20, 1, 1), want, "yuv2rgb");

    const uint8_t uvPair[2] = {u, v}; // NV12: U then V
    const uint8_t vuPair[2] = {v, u}; // NV21: V then U
    GLuint uvTex = makeTexture(GL_LUMINANCE_ALPHA, 1, 1, uvPair);
    GLuint vuTex = makeTexture(GL_LUMINANCE_ALPHA, 1, 1, vuPair);
    drawFull("yuv2rgb12", {yTex, uvTex});
    expectNear(readPixels(20, 20, 1, 1), want, "yuv2rgb12");
    drawFull("yuv2rgb21", {yTex, vuTex});
    expectNear(readPixels(20, 20, 1, 1), want, "yuv2rgb21");

    const uint8_t rgba[4] = {10, 100, 200, 255};
    GLuint rgbaTex = makeTexture(GL_RGBA, 1, 1, rgba);
    drawFull("rgba", {rgbaTex});
    EXPECT_EQ(readPixels(5, 5, 1, 1), (std::vector<uint8_t>{10, 100, 200, 255}));
    drawFull("bgra", {rgbaTex});
    EXPECT_EQ(readPixels(5, 5, 1, 1), (std::vector<uint8_t>{200, 100, 10, 255}));
    drawFull("screennorbgra", {rgbaTex});
    EXPECT_EQ(readPixels(5, 5, 1, 1), (std::vector<uint8_t>{200, 100, 10, 255}));
    drawFull("defaultBlack", {});
    EXPECT_EQ(readPixels(5, 5, 1, 1), (std::vector<uint8_t>{0, 0, 0, 0}));
    GLuint all[] = {yTex, uTex, vTex, uvTex, vuTex, rgbaTex};
    glDeleteTextures(6, all);
}

TEST_F(ShaderPrograms, SeparationCutsTheBackgroundByTheFlippedMask) {
    const uint8_t background[4] = {200, 100, 50, 255};
    // Mask 1 x 2: bottom row black, top row white; read flipped, so the top
    // of the screen keeps the background.
    const uint8_t mask[2] = {0, 255};
    GLuint bgTex = makeTexture(GL_RGBA, 1, 1, background);
    GLuint maskTex = makeTexture(GL_LUMINANCE, 1, 2, mask);
    drawFull("screennorseparation", {bgTex, maskTex});
    EXPECT_EQ(readPixels(10, 54, 1, 1), (std::vector<uint8_t>{200, 100, 50, 255}));
    EXPECT_EQ(readPixels(10, 10, 1, 1), (std::vector<uint8_t>{0, 0, 0, 0}));
    glDeleteTextures(1, &bgTex);
    glDeleteTextures(1, &maskTex);
}

// Packs a 64 x 64 source into the 64 x 64 default framebuffer: rows 0-15 Y,
// 16-23 chroma, the rest keeps the clear colour.
TEST_F(ShaderPrograms, RgbPacksIntoPlanarYuvBands) {
    const uint8_t colour[3] = {200, 60, 30};
    int yuv[3];
    rgbToYuv(colour, yuv);
    std::vector<uint8_t> source(64 * 64 * 4);
    for (size_t i = 0; i < source.size(); i += 4) {
        source[i] = colour[0];
        source[i + 1] = colour[1];
        source[i + 2] = colour[2];
        source[i + 3] = 255;
    }
    GLuint tex = makeTexture(GL_RGBA, 64, 64, source.data());
    const int Y = yuv[0], U = yuv[1], V = yuv[2];
    struct Case {
        const char* key;
        int firstBand[4];  // bytes of rows 16-19
        int secondBand[4]; // bytes of rows 20-23
    } cases[] = {
        {"rgb2yuvnv12", {U, V, U, V}, {U, V, U, V}},
        {"rgb2yuvnv21", {V, U, V, U}, {V, U, V, U}},
        {"rgb2yuvi420", {U, U, U, U}, {V, V, V, V}},
        {"rgb2yuvyv12", {V, V, V, V}, {U, U, U, U}},
    };
    for (const Case& c : cases) {
        drawFull(c.key, {tex});
        std::vector<uint8_t> rows = readPixels(0, 0, 64, 64);
        for (int row = 0; row < 64; ++row) {
            for (int x = 0; x < 64; x += 9) {
                const uint8_t* p = &rows[(row * 64 + x) * 4];
                int want[4];
                if (row < 16) {
                    for (int& w : want) w = Y;
                } else if (row < 20) {
                    std::memcpy(want, c.firstBand, sizeof want);
                } else if (row < 24) {
                    std::memcpy(want, c.secondBand, sizeof want);
                } else {
                    const int clearColour[4] = {0, 0, 255, 255};
                    std::memcpy(want, clearColour, sizeof want);
                }
                for (int k = 0; k < 4; ++k)
                    ASSERT_NEAR(p[k], want[k], 1) << c.key << " row " << row << " x " << x << " byte " << k;
            }
        }
    }
    glDeleteTextures(1, &tex);
}

// The Y plane keeps the source's row order: the bottom half of the image
// fills the first eight packed rows, the top half the next eight.
TEST_F(ShaderPrograms, LumaPlaneFollowsSourceRows) {
    const uint8_t dark[3] = {20, 20, 20}, light[3] = {230, 230, 230};
    int yDark[3], yLight[3];
    rgbToYuv(dark, yDark);
    rgbToYuv(light, yLight);
    std::vector<uint8_t> source(64 * 64 * 4);
    for (int row = 0; row < 64; ++row) {
        for (int x = 0; x < 64; ++x) {
            const uint8_t* c = row < 32 ? dark : light;
            uint8_t* p = &source[(row * 64 + x) * 4];
            p[0] = c[0];
            p[1] = c[1];
            p[2] = c[2];
            p[3] = 255;
        }
    }
    GLuint tex = makeTexture(GL_RGBA, 64, 64, source.data());
    drawFull("rgb2yuvnv21", {tex});
    // Rows next to the seam are skipped: the packing samples a little past
    // each run's start.
    for (int row : {0, 3, 6}) EXPECT_NEAR(readPixels(10, row, 1, 1)[0], yDark[0], 1) << row;
    for (int row : {8, 11, 14}) EXPECT_NEAR(readPixels(10, row, 1, 1)[0], yLight[0], 1) << row;
    glDeleteTextures(1, &tex);
}
