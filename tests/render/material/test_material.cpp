// Materials set a draw's whole state and decide whether it happens.
#include "render/material/MatIndex.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/math/ZuMat4.h"
#include "render/material/ZuMatSet.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialColorLine.h"
#include "render/material/ZuMaterialColorSelect2d.h"
#include "render/material/ZuMaterialColorSelect2dSpine.h"
#include "render/material/ZuMaterialColorSelect3d.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/shader/ZuShaderMgr.h"
#include "render/material/ZuTexAniMaterial.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "render/texture/ZuTexture2D.h"
#include "support/GLTest.h"
#include "render/test_texture_support.h"

using namespace texsupport;

namespace {

using Pixel = std::vector<uint8_t>;

class MaterialTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        engine = new Engine();
        app = engine->app;
        data = new ZuRenderData();
        data->init();
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glViewport(0, 0, 64, 64);
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    }
    void TearDown() override {
        data->destroy();
        data->release();
        delete engine;
    }

    ZuTexMgr* texMgr() { return app->getGlobalMgr()->getTexMgr(); }

    // A loaded single-colour texture, held by the cache.
    ZuTexture* solid(const char* name, uint8_t r, uint8_t g, uint8_t b, uint8_t a = 255) {
        uint8_t pixels[16] = {r, g, b, a, r, g, b, a, r, g, b, a, r, g, b, a};
        return texMgr()->createNullTextureWithData(name, 2, 2, GL_RGBA, GL_RGBA, pixels);
    }

    // Refreshes the material and draws the full-screen rectangle if allowed.
    bool draw(ZuMaterial* material) {
        if (!material->refreshMaterial()) return false;
        data->meshFull->render();
        return true;
    }

    static Pixel at(int x, int y) { return readPixels(x, y, 1, 1); }
    static Pixel rgba(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {r, g, b, a}; }

    Engine* engine = nullptr;
    ZuAppMain* app = nullptr;
    ZuRenderData* data = nullptr;
};

// A material that counts the runs of its subclass hook.
class CountingMaterial : public ZuMaterial {
public:
    CountingMaterial(ZuAppMain* app, const char* key) : ZuMaterial(app, key) {}
    void _refreshInner() override { inner++; }
    int inner = 0;
};

// A material that sets one colour uniform by name, as subclasses do.
class ColourUniformMaterial : public ZuMaterial {
public:
    ColourUniformMaterial(ZuAppMain* app, const char* key) : ZuMaterial(app, key) {}
    void _refreshInner() override { glUniform4f(uniformLocation("u_colour"), r, g, 0.0f, 1.0f); }
    int locationOf(const char* name) { return uniformLocation(name); }
    float r = 0.0f, g = 0.0f;
};

} // namespace

TEST_F(MaterialTest, ProgramAndTexturesGateTheDraw) {
    ZuMaterial* empty = new ZuMaterial();
    EXPECT_FALSE(draw(empty));  // no program
    empty->release();

    CountingMaterial* material = new CountingMaterial(app, "screennor");
    ASSERT_NE(material->getProgram(), 0u);
    material->setTexture0(solid("red", 255, 0, 0));
    EXPECT_TRUE(draw(material));
    EXPECT_EQ(at(32, 32), rgba(255, 0, 0, 255));
    EXPECT_EQ(material->inner, 1);

    // A texture still loading in the last slot keeps the whole draw out,
    // even though the first slot is ready, and the subclass hook never runs.
    ZuTexture* loading = new ZuTexture2D(app);
    loading->zuinit();
    ASSERT_FALSE(loading->getbLoad());
    material->setTexture3(loading);
    material->setTexture0(solid("green", 0, 255, 0));
    EXPECT_FALSE(draw(material));
    EXPECT_EQ(at(32, 32), rgba(255, 0, 0, 255));
    EXPECT_EQ(material->inner, 1);

    // Once it has its pixels the draw goes ahead.
    uint8_t blue[16] = {0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255};
    loading->setwidth(2);
    loading->setheight(2);
    loading->setinformate(GL_RGBA);
    loading->setdataformate(GL_RGBA);
    loading->apply();
    loading->setData(blue, 0, false);
    EXPECT_TRUE(draw(material));
    EXPECT_EQ(at(32, 32), rgba(0, 255, 0, 255));
    EXPECT_NE(material->getTexId(3), 0u);

    loading->release();
    material->release();
}

TEST_F(MaterialTest, FramebufferSourcesHideTexturesAndEmptySlotsKeepTheirName) {
    ZuFboObject* fbo = app->getGlobalMgr()->getFboMgr()->createFboTexture("material_fbo", 4, 4, false);
    ASSERT_NE(fbo, nullptr);
    fbo->setClearColor(0, 0, 1, 1);
    fbo->bind();
    fbo->unbind();
    glViewport(0, 0, 64, 64);

    ZuMaterial* material = new ZuMaterial(app, "screennor");
    ZuTexture* loading = new ZuTexture2D(app);  // never loaded: must not be asked
    material->setTexture0(loading);
    material->setTexture0FBO(fbo, true);
    EXPECT_TRUE(draw(material));
    EXPECT_EQ(at(10, 10), rgba(0, 0, 255, 255));
    unsigned fboName = material->getTexId(0);
    EXPECT_EQ(fboName, static_cast<unsigned>(fbo->getMainTex()->getid()));

    // This framebuffer has no second texture: the slot keeps the last name.
    material->setTexture0FBO(fbo, false);
    EXPECT_TRUE(draw(material));
    EXPECT_EQ(material->getTexId(0), fboName);

    // Emptying both sources still leaves the name (and the image) bound.
    material->setTexture0FBO(nullptr, true);
    material->setTexture0(nullptr);
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_TRUE(draw(material));
    EXPECT_EQ(material->getTexId(0), fboName);
    EXPECT_EQ(at(10, 10), rgba(0, 0, 255, 255));
    material->release();
    loading->release();
}

TEST_F(MaterialTest, SlotsHoldAReferenceUntilDestroyOrTheMaterialGoes) {
    ZuTexture* texture = new ZuTexture2D(app);
    ZuFboObject* fbo = app->getGlobalMgr()->getFboMgr()->createFboTexture("held_fbo", 2, 2, false);
    uint32_t fboBase = fbo->count();
    ZuMaterial* material = new ZuMaterial();
    material->setTexture2(texture);
    material->setTexture2(texture);  // the same object again takes no extra reference
    material->setTexture1FBO(fbo, true);
    EXPECT_EQ(texture->count(), 2u);
    EXPECT_EQ(fbo->count(), fboBase + 1);
    material->setTextureIndex(7, texture);  // not a slot: ignored
    EXPECT_EQ(texture->count(), 2u);

    material->destroy();
    EXPECT_EQ(texture->count(), 1u);
    EXPECT_EQ(fbo->count(), fboBase);
    EXPECT_EQ(material->getTexture(2), nullptr);
    material->setTexture0(texture);
    material->setTexture3FBO(fbo, false);
    material->release();  // the destructor drops the slots: owners only release
    EXPECT_EQ(texture->count(), 1u);
    EXPECT_EQ(fbo->count(), fboBase);
    texture->release();
}

TEST_F(MaterialTest, RefreshSetsEveryRasterStateItOwns) {
    ZuMaterial* material = new ZuMaterial(app, "screennor");
    material->setTexture0(solid("white", 255, 255, 255));
    material->setBlend(true, GL_SRC_ALPHA, GL_ONE);
    material->setCull(true, GL_CW, GL_FRONT);
    material->setDepthTest(true);
    material->setDepthFunc(GL_ALWAYS);
    material->setStencilTest(true);
    material->setStencilFunc(GL_EQUAL, 3, 0xff);
    material->setStencilOp(GL_KEEP, GL_KEEP, GL_INCR);
    material->setLineWidth(1.0f);
    ASSERT_TRUE(material->refreshMaterial());

    GLint value = 0;
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    glGetIntegerv(GL_BLEND_SRC_RGB, &value);
    EXPECT_EQ(value, GL_SRC_ALPHA);
    glGetIntegerv(GL_BLEND_DST_RGB, &value);
    EXPECT_EQ(value, GL_ONE);
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    glGetIntegerv(GL_FRONT_FACE, &value);
    EXPECT_EQ(value, GL_CW);
    glGetIntegerv(GL_CULL_FACE_MODE, &value);
    EXPECT_EQ(value, GL_FRONT);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    glGetIntegerv(GL_DEPTH_FUNC, &value);
    EXPECT_EQ(value, GL_ALWAYS);
    EXPECT_TRUE(glIsEnabled(GL_STENCIL_TEST));
    glGetIntegerv(GL_STENCIL_FUNC, &value);
    EXPECT_EQ(value, GL_EQUAL);
    glGetIntegerv(GL_STENCIL_REF, &value);
    EXPECT_EQ(value, 3);
    glGetIntegerv(GL_STENCIL_PASS_DEPTH_PASS, &value);
    EXPECT_EQ(value, GL_INCR);

    // The defaults switch everything off again: nothing leaks into the next draw.
    ZuMaterial* plain = new ZuMaterial(app, "screennor");
    plain->setTexture0(material->getTexture0());
    ASSERT_TRUE(plain->refreshMaterial());
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_STENCIL_TEST));
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_GT(width, 0.0f);
    plain->release();
    material->release();
}

TEST_F(MaterialTest, PremultipliedBlendComposesOverThePicture) {
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    ZuMaterial* material = new ZuMaterial(app, "screennor");
    // Half-transparent red, premultiplied: (128, 0, 0, 128).
    material->setTexture0(solid("half_red", 128, 0, 0, 128));
    material->setBlendEnable(true);
    ASSERT_TRUE(draw(material));
    Pixel p = at(32, 32);
    EXPECT_NEAR(p[0], 128, 1);
    EXPECT_EQ(p[1], 0);
    EXPECT_NEAR(p[2], 127, 1);
    material->release();
}

TEST_F(MaterialTest, MatricesAndTexcoordFlipReachTheShader) {
    ZuMaterial* material = new ZuMaterial(app, "normal2d");
    ASSERT_NE(material->getProgram(), 0u);
    // Left half green, right half red (rows are uploaded bottom first here).
    uint8_t pixels[16] = {0, 255, 0, 255, 255, 0, 0, 255, 0, 255, 0, 255, 255, 0, 0, 255};
    ZuTexture* texture = texMgr()->createNullTextureWithData("halves", 2, 2, GL_RGBA, GL_RGBA, pixels);
    material->setTexture0(texture);
    // Half size, moved into the top-right quarter of the window.
    ZuMat4 model;
    model.identity();
    model.m[0] = 0.5f;
    model.m[5] = 0.5f;
    model.m[12] = 0.5f;
    model.m[13] = 0.5f;
    material->setModelMatrix(model.data());
    ASSERT_TRUE(draw(material));
    EXPECT_EQ(at(10, 10), rgba(0, 0, 0, 0));
    EXPECT_EQ(at(36, 48), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(60, 48), rgba(255, 0, 0, 255));

    // The screen program mirrors through texcoordClip.
    ZuMaterial* screen = new ZuMaterial(app, "screennor");
    screen->setTexture0(texture);
    screen->setTexcoordFlip(-1.0f, 1.0f);
    ASSERT_TRUE(draw(screen));
    EXPECT_EQ(at(4, 32), rgba(255, 0, 0, 255));
    EXPECT_EQ(at(60, 32), rgba(0, 255, 0, 255));
    screen->release();
    material->release();
}

TEST_F(MaterialTest, ColourMaterialsDrawTheirColourWithEachProgram) {
    ZuMaterialColorSelect2d* select = new ZuMaterialColorSelect2d(app);
    ZuMaterialColorSelect3d* select3d = new ZuMaterialColorSelect3d(app);
    ZuMaterialColorLine* line = new ZuMaterialColorLine(app);
    ZuMaterialColorSelect2dSpine* spine = new ZuMaterialColorSelect2dSpine(app);
    ZuMaterialColorSelect2d* all[] = {select, select3d, line, spine};
    for (ZuMaterialColorSelect2d* m : all) {
        EXPECT_EQ(m->getColor(), ZuColor(1, 1, 1, 1));
        m->init();
        EXPECT_NE(m->getProgram(), 0u);
        EXPECT_TRUE(m->getDepthTest());
        EXPECT_FALSE(m->getBlendEnable());
    }
    EXPECT_NE(select->getProgram(), spine->getProgram());

    // A pick id written as a colour reads back as the same id.
    const unsigned id = 0x80123456;
    select->setColor(id);
    ASSERT_TRUE(draw(select));
    Pixel p = at(32, 32);
    EXPECT_EQ(ZuColor::transRgbaToID(p[0], p[1], p[2], p[3]), id);

    // The Spine form writes its colour only where the texture shows.
    spine->setColor(0xff00ff00);
    spine->setTexture0(solid("clear", 0, 0, 0, 0));
    glClear(GL_COLOR_BUFFER_BIT);
    ASSERT_TRUE(draw(spine));
    EXPECT_EQ(at(32, 32), rgba(255, 0, 0, 0));
    spine->setTexture0(solid("opaque", 9, 9, 9, 255));
    ASSERT_TRUE(draw(spine));
    EXPECT_EQ(at(32, 32), rgba(0, 255, 0, 255));

    for (ZuMaterialColorSelect2d* m : all) {
        m->release();
    }
}

TEST_F(MaterialTest, ScreenAndScrollingMaterials) {
    ZuMaterialScreen* screen = new ZuMaterialScreen(app);
    screen->init();
    EXPECT_NE(screen->getProgram(), 0u);
    EXPECT_TRUE(screen->getDepthTest());

    ZuTexAniMaterial* scroll = new ZuTexAniMaterial(app);
    scroll->init();
    ASSERT_NE(scroll->getProgram(), 0u);
    EXPECT_FALSE(scroll->getBlendEnable());
    scroll->update(1000.0f);  // 0.1 texture widths along x
    EXPECT_TRUE(scroll->getBlendEnable());
    EXPECT_NEAR(scroll->getOffsetX(), 0.1f, 1e-6f);
    EXPECT_NEAR(scroll->getOffsetY(), 0.0f, 1e-6f);
    scroll->update(9500.0f);  // 1.05 in all: wraps to 0.05
    EXPECT_NEAR(scroll->getOffsetX(), 0.05f, 1e-5f);

    // Straight down at speed 0.5 for one second, from zero: y offset 0.5
    // (wrapped from -0.5), so the two halves of the texture trade places.
    ZuTexAniMaterial* down = new ZuTexAniMaterial(app);
    down->init();
    down->setDegreeAndSpeed(-90.0f, 0.5f);
    down->update(1000.0f);
    EXPECT_NEAR(down->getOffsetX(), 0.0f, 1e-5f);
    EXPECT_NEAR(down->getOffsetY(), 0.5f, 1e-5f);
    // Bottom row red, top row blue.
    uint8_t pixels[16] = {255, 0, 0, 255, 255, 0, 0, 255, 0, 0, 255, 255, 0, 0, 255, 255};
    ZuTexture* bands = texMgr()->createNullTextureWithData("bands", 2, 2, GL_RGBA, GL_RGBA, pixels);
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(bands->getid()));
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    down->setTexture0(bands);
    ASSERT_TRUE(draw(down));
    EXPECT_EQ(at(32, 8), rgba(0, 0, 255, 255));
    EXPECT_EQ(at(32, 56), rgba(255, 0, 0, 255));
    down->release();
    scroll->release();
    screen->release();
}

TEST(MatSet, NamedMatricesFallBackToTheDefault) {
    ZuMatSet set;
    EXPECT_EQ(set.getMatData("arm"), nullptr);
    EXPECT_TRUE(set.getVisible("arm"));

    ZuMat4 scale;
    scale.identity();
    scale.m[0] = 2.0f;
    ZuMat4 shift;
    shift.identity();
    shift.m[12] = 5.0f;
    set.setDefault(scale);
    set.setMat("arm", shift, false);
    ASSERT_NE(set.getMatData("arm"), nullptr);
    EXPECT_EQ(set.getMatData("arm")[12], 5.0f);
    EXPECT_FALSE(set.getVisible("arm"));
    EXPECT_EQ(set.getMatData("leg")[0], 2.0f);
    EXPECT_TRUE(set.getVisible("leg"));
    set.setMat("arm", scale);  // replaced, visible again
    EXPECT_EQ(set.getMatData("arm")[12], 0.0f);
    EXPECT_TRUE(set.getVisible("arm"));
    EXPECT_EQ(set.getMatData(nullptr)[0], 2.0f);
}

TEST_F(MaterialTest, UniformLocationsFollowTheProgramTheyWereFoundIn) {
    ZuShaderMgr* shaders = app->getGlobalMgr()->getShaderMgr();
    const char* vertex = "attribute vec4 aPosition;\nvoid main() { gl_Position = aPosition; }\n";
    // The colour sits at another location in each program.
    ASSERT_TRUE(shaders->addShaderCell("uniformsFirst", vertex,
                                       "precision mediump float;\nuniform vec4 u_bias;\nuniform vec4 u_colour;\n"
                                       "void main() { gl_FragColor = u_colour + u_bias; }\n"));
    ASSERT_TRUE(shaders->addShaderCell("uniformsSecond", vertex,
                                       "precision mediump float;\nuniform vec4 u_colour;\n"
                                       "void main() { gl_FragColor = u_colour; }\n"));
    ColourUniformMaterial* material = new ColourUniformMaterial(app, "uniformsFirst");
    material->r = 1.0f;
    ASSERT_TRUE(draw(material));
    EXPECT_EQ(at(32, 32), rgba(255, 0, 0, 255));
    EXPECT_EQ(material->locationOf("u_colour"), glGetUniformLocation(material->getProgram(), "u_colour"));

    material->AsynloadShader(app, "uniformsSecond");
    material->r = 0.0f;
    material->g = 1.0f;
    ASSERT_TRUE(draw(material));
    EXPECT_EQ(at(32, 32), rgba(0, 255, 0, 255));
    EXPECT_EQ(material->locationOf("u_colour"), glGetUniformLocation(material->getProgram(), "u_colour"));
    EXPECT_EQ(material->locationOf("u_bias"), -1);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    material->release();
}
