#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/mesh/ZuRenderMeshDvid.h"
#include "render/shader/ZuShaderMgr.h"
#include "data/ZuDataDoubleSwap.h"
#include "data/ZuDataSwap.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"

#include <cstring>

namespace {

const float kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// A 2x2 texture, one colour per texel, nearest sampling:
// texel (0,0) red, (1,0) green, (0,1) blue, (1,1) white.
const uint8_t kTexels[4][4] = {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 255, 255}};

GLuint makeQuadTexture() {
    GLuint tex = 0;
    glGenTextures(1, &tex);
    glBindTexture(GL_TEXTURE_2D, tex);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 2, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, kTexels);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return tex;
}

// Texture coordinate at a screen point of a rectangle whose corners
// (bottom-left, bottom-right, top-left, top-right) carry the given
// coordinates; the corner tables of the rotations are affine, so bilinear
// blending is exact.
void texAt(const float tex[8], float sx, float sy, float& u, float& v) {
    const float w[4] = {(1 - sx) * (1 - sy), sx * (1 - sy), (1 - sx) * sy, sx * sy};
    u = v = 0;
    for (int i = 0; i < 4; ++i) {
        u += w[i] * tex[2 * i];
        v += w[i] * tex[2 * i + 1];
    }
}

std::vector<uint8_t> texelAt(float u, float v) {
    int i = u < 0.5f ? 0 : 1;
    int j = v < 0.5f ? 0 : 1;
    const uint8_t* t = kTexels[j * 2 + i];
    return {t[0], t[1], t[2], t[3]};
}

class MeshDraw : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        shaders = new ZuShaderMgr(nullptr);
        shaders->init();
        data = new ZuRenderData();
        data->init();
        texture = makeQuadTexture();
    }
    void TearDown() override {
        glDeleteTextures(1, &texture);
        data->destroy();
        data->release();
        shaders->destroy();
        shaders->release();
    }

    void clear() {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    // The plain full-screen copy with the texture above in unit 0.
    void useScreen() {
        GLuint program = shaders->getProgramme("screennor");
        ASSERT_NE(program, 0u);
        glUseProgram(program);
        glUniform2f(glGetUniformLocation(program, "texcoordClip"), 1, 1);
        glUniform1i(glGetUniformLocation(program, "aTexture0"), 0);
        glActiveTexture(GL_TEXTURE0);
        glBindTexture(GL_TEXTURE_2D, texture);
    }

    void useMatrices(const char* key) {
        GLuint program = shaders->getProgramme(key);
        ASSERT_NE(program, 0u);
        glUseProgram(program);
        glUniformMatrix4fv(glGetUniformLocation(program, "aMatrixM"), 1, GL_FALSE, kIdentity);
        glUniformMatrix4fv(glGetUniformLocation(program, "aMatrixVP"), 1, GL_FALSE, kIdentity);
    }

    static bool anyAttributeEnabled() {
        GLint max = 0;
        glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &max);
        for (GLint i = 0; i < max; ++i) {
            GLint on = 0;
            glGetVertexAttribiv(i, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &on);
            if (on) return true;
        }
        return false;
    }

    ZuShaderMgr* shaders = nullptr;
    ZuRenderData* data = nullptr;
    GLuint texture = 0;
};

// Bytes of the current GL array buffer, through an ES 3 mapping.
std::vector<uint8_t> bufferBytes(GLenum target, GLuint buffer, int bytes) {
    glBindBuffer(target, buffer);
    std::vector<uint8_t> out(static_cast<size_t>(bytes));
    void* mapped = glMapBufferRange(target, 0, bytes, GL_MAP_READ_BIT);
    if (mapped) {
        std::memcpy(out.data(), mapped, out.size());
        glUnmapBuffer(target);
    }
    glBindBuffer(target, 0);
    return out;
}

} // namespace

TEST_F(MeshDraw, ScreenRectanglesShowTheTextureInEachRotation) {
    // Corner tables: bottom-left, bottom-right, top-left, top-right.
    struct Case {
        ZuRenderMesh* mesh;
        float tex[8];
    } cases[] = {
        {data->meshFull, {0, 0, 1, 0, 0, 1, 1, 1}},
        {data->meshRot90, {0, 1, 0, 0, 1, 1, 1, 0}},
        {data->meshRot180, {1, 1, 0, 1, 1, 0, 0, 0}},
        {data->meshRot270, {1, 0, 1, 1, 0, 0, 0, 1}},
    };
    const int probes[4][2] = {{16, 16}, {48, 16}, {16, 48}, {48, 48}};
    for (const Case& c : cases) {
        clear();
        useScreen();
        c.mesh->render();
        ASSERT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        for (const auto& p : probes) {
            float u, v;
            texAt(c.tex, (p[0] + 0.5f) / 64.0f, (p[1] + 0.5f) / 64.0f, u, v);
            EXPECT_EQ(readPixels(p[0], p[1], 1, 1), texelAt(u, v)) << "probe " << p[0] << "," << p[1];
        }
    }
    EXPECT_FALSE(anyAttributeEnabled()) << "attribute arrays leaked out of the draw";
}

TEST_F(MeshDraw, QuarterMeshesCoverOnlyTheirQuarter) {
    struct Case {
        ZuRenderMesh* mesh;
        int x, y; // the covered quarter's lower-left pixel
    } cases[] = {{data->meshTopLeft, 0, 32},
                 {data->meshTopRight, 32, 32},
                 {data->meshBottomLeft, 0, 0},
                 {data->meshBottomRight, 32, 0}};
    for (const Case& c : cases) {
        clear();
        useScreen();
        c.mesh->render();
        // The whole texture inside the quarter: red at its lower-left.
        EXPECT_EQ(readPixels(c.x + 4, c.y + 4, 1, 1), (std::vector<uint8_t>{255, 0, 0, 255}));
        EXPECT_EQ(readPixels(c.x + 28, c.y + 28, 1, 1), (std::vector<uint8_t>{255, 255, 255, 255}));
        // The opposite quarter keeps the clear colour.
        EXPECT_EQ(readPixels(63 - c.x - 16, 63 - c.y - 16, 1, 1), (std::vector<uint8_t>{0, 0, 0, 0}));
    }
}

TEST_F(MeshDraw, GridMeshesMatchTheRectangle) {
    ZuRenderMesh* small = ZuRenderData::createRectMesh(1.0f, 1.0f, 2, 2);
    ASSERT_NE(small, nullptr);
    EXPECT_EQ(small->getVertexNum(), 4);
    EXPECT_EQ(small->getIndexNum(), 6);
    small->release();

    ZuRenderMesh* grid = ZuRenderData::createRectMesh(1.0f, 1.0f, 5, 4);
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->getVertexNum(), 20);
    EXPECT_EQ(grid->getIndexNum(), 4 * 3 * 6);
    clear();
    useScreen();
    grid->render();
    EXPECT_EQ(readPixels(8, 8, 1, 1), (std::vector<uint8_t>{255, 0, 0, 255}));
    EXPECT_EQ(readPixels(56, 8, 1, 1), (std::vector<uint8_t>{0, 255, 0, 255}));
    EXPECT_EQ(readPixels(8, 56, 1, 1), (std::vector<uint8_t>{0, 0, 255, 255}));
    EXPECT_EQ(readPixels(56, 56, 1, 1), (std::vector<uint8_t>{255, 255, 255, 255}));
    grid->release();

    LogCapture log;
    EXPECT_EQ(ZuRenderData::createRectMesh(1.0f, 1.0f, 1, 5), nullptr);
    EXPECT_EQ(ZuRenderData::createRectMesh(1.0f, 1.0f, 300, 300), nullptr); // past 16-bit indices
    EXPECT_EQ(log.count("createRectMesh", ZU_LOG_WARN), 2);
}

TEST_F(MeshDraw, VertexColoursAreBytesDividedInTheShader) {
    // Two triangles covering the left half: red bottom vertices, blue top ones.
    struct V {
        float x, y;
        uint8_t c[4];
    } vertices[] = {{-1, -1, {255, 0, 0, 255}}, {0, -1, {255, 0, 0, 255}},
                    {-1, 1, {0, 0, 255, 255}},  {0, 1, {0, 0, 255, 255}}};
    const uint16_t indices[] = {0, 1, 2, 2, 1, 3};
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0);
    mesh->setVertexNum(4);
    mesh->setVertexData(vertices, sizeof vertices);
    mesh->setIndexData(indices, sizeof indices, 6);
    clear();
    useMatrices("geometry");
    mesh->render();
    std::vector<uint8_t> bottom = readPixels(16, 0, 1, 1);
    std::vector<uint8_t> top = readPixels(16, 63, 1, 1);
    EXPECT_GE(bottom[0], 250);
    EXPECT_LE(bottom[2], 5);
    EXPECT_GE(top[2], 250);
    EXPECT_EQ(readPixels(48, 32, 1, 1), (std::vector<uint8_t>{0, 0, 0, 0}));
    EXPECT_FALSE(anyAttributeEnabled());
    mesh->release();
}

TEST_F(MeshDraw, DoubleBufferUploadsTheLastWriteAndKeepsTheTail) {
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setVertexNum(2);
    const float first[4] = {1, 2, 3, 4};
    const float second[4] = {5, 6, 7, 8};
    mesh->setVertexData(first, sizeof first);
    mesh->setVertexData(second, sizeof second); // before any draw: only this one uploads
    EXPECT_EQ(mesh->getVertexState(), 2);
    useMatrices("normalv2");
    mesh->render();
    EXPECT_EQ(mesh->getVertexState(), 1);
    std::vector<uint8_t> bytes = bufferBytes(GL_ARRAY_BUFFER, mesh->getVbo(), 16);
    EXPECT_EQ(std::memcmp(bytes.data(), second, 16), 0);

    const float shorter[2] = {9, 10};
    mesh->setVertexData(shorter, sizeof shorter);
    mesh->render();
    bytes = bufferBytes(GL_ARRAY_BUFFER, mesh->getVbo(), 16);
    float uploaded[4];
    std::memcpy(uploaded, bytes.data(), 16);
    EXPECT_EQ(uploaded[0], 9.0f);
    EXPECT_EQ(uploaded[1], 10.0f);
    EXPECT_NE(uploaded[2], 0.0f) << "the tail keeps earlier content";

    // Growing, then a smaller write before the draw, must still reallocate.
    const float grown[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    mesh->setVertexData(grown, sizeof grown);
    EXPECT_EQ(mesh->getVertexState(), 3);
    mesh->setVertexData(shorter, sizeof shorter);
    mesh->render();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(mesh->getSwapVertexData()->getsize(), 32);

    // Invisible: no upload, the state waits for the next visible draw.
    mesh->setVertexData(first, sizeof first);
    mesh->setVisible(false);
    mesh->render();
    EXPECT_EQ(mesh->getVertexState(), 2);
    mesh->setVisible(true);
    mesh->render();
    EXPECT_EQ(mesh->getVertexState(), 1);
    mesh->release();
}

TEST_F(MeshDraw, BadCountsAndIndicesNeverReadPastTheData) {
    const float vertices[6] = {-1, -1, 1, -1, -1, 1};
    const uint16_t pastEnd[3] = {0, 1, 7};
    LogCapture log;
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setVertexNum(1000); // clamped to the 3 vertices uploaded
    mesh->setVertexData(vertices, sizeof vertices);
    useMatrices("normalv2");
    glUniform4f(glGetUniformLocation(shaders->getProgramme("normalv2"), "u_color"), 0, 1, 0, 1);
    clear();
    mesh->render();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(readPixels(4, 4, 1, 1), (std::vector<uint8_t>{0, 255, 0, 255}));

    mesh->setIndexData(pastEnd, sizeof pastEnd, 3);
    clear();
    mesh->render(); // refused: index 7 has no vertex
    EXPECT_EQ(readPixels(4, 4, 1, 1), (std::vector<uint8_t>{0, 0, 0, 0}));
    EXPECT_GE(log.count("ZuRenderMesh", ZU_LOG_WARN), 1);

    mesh->setVertexType(0x7); // no known stride: refused, nothing bound
    mesh->render();
    EXPECT_FALSE(anyAttributeEnabled());
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    mesh->release();
}

TEST_F(MeshDraw, SetterRefusalsAndMorphSlots) {
    LogCapture log;
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexPoolType(GL_TRIANGLES);
    mesh->setIndexPoolType(0x1234);
    EXPECT_EQ(mesh->getVertexPoolType(), static_cast<unsigned>(GL_STATIC_DRAW));
    EXPECT_EQ(log.count("error parameter: HaRenderMesh setVertexPoolType", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("error parameter: HaRenderMesh setIndexPoolType", ZU_LOG_WARN), 1);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    EXPECT_EQ(mesh->getVertexPoolType(), static_cast<unsigned>(GL_DYNAMIC_DRAW));

    mesh->addEnableMorphTarget(10, 4); // no slot 10
    mesh->addEnableMorphTarget(9, 4);
    mesh->addEnableMorphTarget(3);
    mesh->addEnableMorphTarget(5);
    EXPECT_EQ(mesh->getEnabledMorphTarget(0), 3);
    EXPECT_EQ(mesh->getEnabledMorphTarget(1), 5);
    EXPECT_EQ(mesh->getEnabledMorphTarget(9), 4);
    mesh->clearEnabledMorphTarget();
    EXPECT_EQ(mesh->getEnabledMorphTarget(9), 0);

    EXPECT_EQ(getVertexFormateSize(0x1101), 20);
    EXPECT_EQ(getVertexFormateSize(0xB1012), 232);
    EXPECT_EQ(getVertexFormateSize(0x41002), 68);
    EXPECT_EQ(getVertexFormateSize(0x1111), 0);
    mesh->release();
}

TEST_F(MeshDraw, MorphArrayPicksTargetsByOffset) {
    // Format 0xB1012 with 14 targets; the shader reads the slot-0 target as
    // the position offset, so switching targets moves the drawn triangle.
    const char* vs = R"(
attribute vec3 aPosition;
attribute vec3 aMorphT1;
void main() { gl_Position = vec4(aPosition + aMorphT1, 1.0); }
)";
    const char* fs = "precision mediump float;\nvoid main() { gl_FragColor = vec4(1.0); }\n";
    ASSERT_TRUE(shaders->addShaderCell("morphTest", vs, fs));
    GLuint program = shaders->getProgramme("morphTest");
    ASSERT_NE(program, 0u);
    float vertices[3][58] = {};
    const float corners[3][3] = {{-1, -1, 0}, {0, -1, 0}, {-1, 0, 0}};
    for (int v = 0; v < 3; ++v) {
        for (int k = 0; k < 3; ++k) vertices[v][k] = corners[v][k];
        // Target 5 (16 floats of attributes, then 3 per target) shifts right by 1.
        vertices[v][16 + 5 * 3 + 0] = 1.0f;
    }
    ZuRenderMesh* mesh = new ZuRenderMesh();
    mesh->setVertexType(0xB1012);
    mesh->setVertexNum(3);
    mesh->setVertexData(vertices, sizeof vertices);
    glUseProgram(program);
    clear();
    mesh->render(); // target 0 is zero: lower-left quarter
    EXPECT_EQ(readPixels(4, 4, 1, 1)[0], 255);
    EXPECT_EQ(readPixels(36, 4, 1, 1)[0], 0);
    mesh->addEnableMorphTarget(0, 5);
    clear();
    mesh->render();
    EXPECT_EQ(readPixels(4, 4, 1, 1)[0], 0);
    EXPECT_EQ(readPixels(36, 4, 1, 1)[0], 255);
    mesh->addEnableMorphTarget(0, 40); // past the vertex: attribute skipped, no GL error
    mesh->render();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    mesh->release();
}

TEST_F(MeshDraw, SeparateBuffersSkipAttributesWithoutData) {
    const float positions[8] = {-1, -1, 1, -1, -1, 1, 1, 1};
    const float texcoords[8] = {0, 0, 1, 0, 0, 1, 1, 1};
    const uint16_t indices[6] = {0, 1, 2, 2, 1, 3};
    ZuRenderMeshDvid* mesh = new ZuRenderMeshDvid();
    // Colour bits without colour buffers: skipped, never a null client pointer.
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_COLOR1 | VF_TEX0);
    mesh->setVertexNum(4);
    mesh->setVertex2Data(positions, sizeof positions);
    mesh->setTexcoord0Data(texcoords, sizeof texcoords);
    mesh->setIndexData(indices, sizeof indices, 6);
    clear();
    useScreen();
    mesh->render();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(readPixels(8, 8, 1, 1), (std::vector<uint8_t>{255, 0, 0, 255}));
    EXPECT_EQ(readPixels(56, 56, 1, 1), (std::vector<uint8_t>{255, 255, 255, 255}));
    EXPECT_FALSE(anyAttributeEnabled());

    // Rewriting with more data grows the buffer instead of a failing sub-update.
    const float wider[12] = {-1, -1, 1, -1, -1, 1, 1, 1, 0, 0, 0, 0};
    mesh->setVertex2Data(wider, sizeof wider);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    mesh->release();
}
