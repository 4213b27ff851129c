#include "render/command/ZuRenderCmdFboBind.h"
#include "render/command/ZuRenderCmdFboBlit.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/fbo/ZuMSAAFboObject.h"
#include "render/texture/ZuTexture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "render/test_texture_support.h"

using namespace texsupport;

namespace {

class FboTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        mgr = new ZuFboMgr(nullptr);
        mgr->init();
    }
    void TearDown() override {
        mgr->destroy();
        mgr->release();
    }
    static std::vector<uint8_t> pixelAt(int x, int y) { return readPixels(x, y, 1, 1); }
    static std::vector<uint8_t> rgba(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {r, g, b, a}; }

    ZuFboMgr* mgr = nullptr;
};

} // namespace

// The ping-pong step: after swap() the draw that samples the second texture
// reads what was drawn before, and writes into the other texture.
TEST_F(FboTest, SwapThenFullScreenDrawSamplesTheOtherTexture) {
    ZuFboObject* fbo = mgr->createFboTexture("scene_fbo", 8, 8, true);
    ASSERT_NE(fbo->getSecondTex(), nullptr);
    EXPECT_TRUE(fbo->isDepthEnabled());
    EXPECT_TRUE(fbo->isStencilEnabled());
    fbo->setClearColor(0, 0, 1, 1);
    fbo->bind();  // clears to blue
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);  // "drawn": red
    int mainBefore = fbo->getMainTex()->getid();
    int secondBefore = fbo->getSecondTex()->getid();

    fbo->swap();
    EXPECT_EQ(fbo->getMainTex()->getid(), secondBefore);
    EXPECT_EQ(fbo->getSecondTex()->getid(), mainBefore);
    EXPECT_EQ(pixelAt(3, 3), rgba(0, 0, 255, 255)) << "the new target starts at the clear colour";

    drawTexture(static_cast<GLuint>(fbo->getSecondTex()->getid()), 0, 0, 8, 8);
    EXPECT_EQ(pixelAt(3, 3), rgba(255, 0, 0, 255)) << "the draw read the previous image";
    fbo->unbind();

    // The result now lives in mainTex; drawn to the window it shows red.
    drawTexture(static_cast<GLuint>(fbo->getMainTex()->getid()), 0, 0, 64, 64);
    EXPECT_EQ(readPixels(32, 32, 1, 1), rgba(255, 0, 0, 255));
}

TEST_F(FboTest, SwapWithoutSecondTextureDoesNothing) {
    ZuFboObject* fbo = mgr->createFboTexture("plain", 4, 4, false);
    fbo->setClearColor(0, 1, 0, 1);
    fbo->bind();
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    int id = fbo->getMainTex()->getid();
    fbo->swap();
    EXPECT_EQ(fbo->getMainTex()->getid(), id);
    EXPECT_EQ(pixelAt(1, 1), rgba(255, 255, 255, 255)) << "no clear";
    fbo->unbind();
}

TEST_F(FboTest, NamesAreReusedAndResizingDropsTheSwapTexture) {
    ZuFboObject* fbo = mgr->createFboTexture("node_fbo", 16, 8, true);
    EXPECT_EQ(mgr->createFboTexture("node_fbo", 32, 32, false), fbo);
    EXPECT_EQ(mgr->createMSAAFbo("node_fbo", 4, 4, false), fbo);
    EXPECT_EQ(fbo->getFrameWidth(), 16);
    EXPECT_EQ(mgr->getFboTexture("node_fbo"), fbo);
    EXPECT_EQ(mgr->getFboTexture("other"), nullptr);

    ZuTexture* main = fbo->getMainTex();
    EXPECT_TRUE(fbo->resetFboWidth(16, 8));
    EXPECT_EQ(fbo->getMainTex(), main) << "same size keeps everything";
    EXPECT_NE(fbo->getSecondTex(), nullptr);
    EXPECT_FALSE(fbo->resetFboWidth(0, 8));
    EXPECT_TRUE(fbo->resetFboWidth(10, 6));
    EXPECT_EQ(fbo->getSecondTex(), nullptr);
    EXPECT_EQ(fbo->getMainTex()->getwidth(), 10);
    fbo->enableSwapBuffer();
    EXPECT_EQ(fbo->getSecondTex()->getheight(), 6);

    // A node's destroy: gone from the pool; the node's own release later is harmless.
    fbo->retain();
    mgr->destroyFboTexture(fbo);
    EXPECT_EQ(mgr->getFboTexture("node_fbo"), nullptr);
    EXPECT_EQ(fbo->getFboID(), 0u);
    fbo->release();
}

// Ageing frees at the next pass what only the pool holds. A framebuffer let
// go by its node after the node recorded a bind or a copy of it is held by
// those commands, so it outlives that frame's replay and goes at the pass
// after it.
TEST_F(FboTest, AgeingFreesAtTheNextPassWhatNeitherNodesNorCommandsHold) {
    ZuFboObject* held = mgr->createFboTexture("held", 4, 4, false);
    held->retain();
    ZuFboObject* source = mgr->createFboTexture("source", 4, 4, false);
    source->retain();
    ZuFboObject* loose = mgr->createFboTexture("loose", 4, 4, false);
    GLuint looseId = loose->getFboID();
    mgr->getFboTexture("loose");  // a look-up is no hold
    mgr->update(33);
    EXPECT_EQ(mgr->getFboTexture("loose"), nullptr);
    EXPECT_FALSE(glIsFramebuffer(looseId));
    EXPECT_EQ(mgr->size(), 2);

    // This frame records a bind and a copy, then the node lets both go.
    source->setClearColor(1, 0, 0, 1);
    source->bind();
    source->unbind();
    ZuRenderCmd* bind = new ZuRenderCmdFboBind(held);
    ZuRenderCmd* blit = new ZuRenderCmdFboBlit(held, source, 4, 4);
    GLuint heldId = held->getFboID();
    held->release();
    source->release();
    mgr->update(33);
    ASSERT_EQ(mgr->size(), 2) << "still usable by this frame's replay";
    blit->render();
    bind->release();  // replayed commands are released
    blit->release();
    glBindFramebuffer(GL_FRAMEBUFFER, heldId);
    EXPECT_EQ(pixelAt(0, 0), rgba(255, 0, 0, 255)) << "the copy reached a live target";
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    mgr->update(33);
    EXPECT_EQ(mgr->size(), 0);
    EXPECT_FALSE(glIsFramebuffer(heldId));
}

TEST_F(FboTest, HostFramebuffersAndTexturesAreNeverDeleted) {
    GLuint hostFbo = 0, hostTex = 0;
    glGenFramebuffers(1, &hostFbo);
    glBindFramebuffer(GL_FRAMEBUFFER, hostFbo);
    glGenTextures(1, &hostTex);
    glBindTexture(GL_TEXTURE_2D, hostTex);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 4, 4, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);

    ZuFboObject* out = mgr->createOutFboTexture("out", 4, 4, hostFbo, true);
    EXPECT_EQ(out->getFboID(), hostFbo);
    EXPECT_EQ(out->getMainTex(), nullptr);
    EXPECT_TRUE(out->resetOutFboWidth(4, 4, 999));
    EXPECT_EQ(out->getFboID(), hostFbo) << "same size keeps the old id";

    ZuFboObject* outTex = mgr->createOutTexFboTexture("outtex", 4, 4, hostTex, true);
    EXPECT_EQ(outTex->getMainTex()->getid(), static_cast<int>(hostTex));
    ASSERT_NE(outTex->getSecondTex(), nullptr);
    outTex->setClearColor(0, 1, 0, 1);
    outTex->bind();
    outTex->swap();  // the host name moves to secondTex and keeps its ownership
    outTex->unbind();
    EXPECT_EQ(outTex->getSecondTex()->getid(), static_cast<int>(hostTex));

    for (int i = 0; i < 2; ++i) mgr->update(33);
    EXPECT_EQ(mgr->size(), 0);
    EXPECT_TRUE(glIsFramebuffer(hostFbo));
    EXPECT_TRUE(glIsTexture(hostTex));
    glDeleteFramebuffers(1, &hostFbo);
    glDeleteTextures(1, &hostTex);
}

TEST_F(FboTest, MultisampleFramebufferResolvesByBlit) {
    ZuFboObject* msaa = mgr->createMSAAFbo("MSAAFbo1", 8, 8, true);
    ZuFboObject* resolved = mgr->createFboTexture("resolved", 8, 8, false);
    ASSERT_NE(msaa->getFboID(), 0u);
    EXPECT_EQ(msaa->getMainTex(), nullptr);
    EXPECT_EQ(static_cast<ZuMSAAFboObject*>(msaa)->getSecondTex(), nullptr);
    msaa->setClearColor(1, 0, 0, 1);
    msaa->bind();
    msaa->unbind();
    ASSERT_TRUE(msaa->blitTo(resolved, 8, 8));
    resolved->bindNoclear();
    EXPECT_EQ(pixelAt(4, 4), rgba(255, 0, 0, 255));
    resolved->unbind();
    GLuint id = msaa->getFboID();
    mgr->destroyFboTexture(msaa);
    EXPECT_FALSE(glIsFramebuffer(id));
}
