#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuTexture.h"
#include "render/texture/ZuTexture2D.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "render/test_texture_support.h"

using namespace texsupport;

namespace {

class FboEs2Test : public GLES2Test {};

} // namespace

TEST_F(FboEs2Test, SwapAndDrawWorkOnEs2) {
    ZuFboMgr* mgr = new ZuFboMgr(nullptr);
    ZuFboObject* fbo = mgr->createFboTexture("vesper", 8, 8, true);
    ASSERT_NE(fbo->getFboID(), 0u);
    EXPECT_TRUE(fbo->isDepthEnabled());
    fbo->setClearColor(0, 0, 0, 0);
    fbo->bind();
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    fbo->swap();
    drawTexture(static_cast<GLuint>(fbo->getSecondTex()->getid()), 0, 0, 8, 8);
    std::vector<uint8_t> px = readPixels(2, 2, 1, 1);
    EXPECT_EQ(px, (std::vector<uint8_t>{0, 255, 0, 255}));
    fbo->unbind();

    LogCapture log;
    ZuFboObject* msaa = mgr->createMSAAFbo("MSAAFbo", 8, 8, false);
    EXPECT_EQ(msaa->getFboID(), 0u) << "multisampling is an ES 3 path";
    EXPECT_EQ(log.count("needs ES 3", ZU_LOG_WARN), 1);
    mgr->release();
}

TEST_F(FboEs2Test, OddWidthImagesUploadUnskewedOnEs2) {
    Expected e = readExpected("rgb8");
    ZuTexture* t = new ZuTexture2D(nullptr);
    t->zuinit();
    t->setwidth(e.width);
    t->setheight(e.height);
    t->setinformate(GL_RGB);
    t->setdataformate(GL_RGB);
    t->setData(e.bytes.data(), 0, false);
    t->commit();
    ASSERT_GT(t->getid(), 0);
    GLuint target = 0, fbo = 0;
    glGenTextures(1, &target);
    glBindTexture(GL_TEXTURE_2D, target);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, e.width, e.height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glGenFramebuffers(1, &fbo);
    glBindFramebuffer(GL_FRAMEBUFFER, fbo);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target, 0);
    drawTexture(static_cast<GLuint>(t->getid()), 0, 0, e.width, e.height);
    EXPECT_EQ(readTopFirst(e.width, e.height), asRgba(e));
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &fbo);
    glDeleteTextures(1, &target);
    t->zudestroy();
    t->release();
}
