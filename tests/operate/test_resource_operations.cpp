// Operations that hand resources to the engine from the host.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateCreateShader.h"
#include "operate/ZuOperateGenHeadTexture.h"
#include "operate/ZuOperatePlaySound.h"
#include "render/material/ZuMaterial.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"

namespace {

class ResourceOperationTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void run(ZuOperateBase* op) {
        op->process(16.0f);
        op->release();
    }
    ZuAppMain* app = nullptr;
};

} // namespace

TEST_F(ResourceOperationTest, HeadPicturesBecomeNamedTexturesThatOutliveTheirUsers) {
    std::vector<unsigned char> pixels(3 * 2 * 4, 0x80);
    run(new ZuOperateGenHeadTexture(app, "head0", 3, 2, pixels.data()));
    ZuTexMgr* texMgr = app->getGlobalMgr()->getTexMgr();
    ZuTexture* head = texMgr->getTexture("head0", false);
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(head->getwidth(), 3);
    EXPECT_EQ(head->getheight(), 2);
    EXPECT_TRUE(head->getbLoad());
    EXPECT_TRUE(head->hasData());
    // The cache's reference and the extra one: ageing never frees it.
    EXPECT_GE(head->count(), 2u);
    for (int pass = 0; pass < 4; pass++) texMgr->removeUnuseTexture();
    EXPECT_EQ(texMgr->getTexture("head0", false), head);
    head->release();  // the extra reference, for the test's own shutdown

    LogCapture log;
    run(new ZuOperateGenHeadTexture(app, "bad", 0, 2, pixels.data()));
    run(new ZuOperateGenHeadTexture(app, "none", 3, 2, nullptr));
    EXPECT_EQ(texMgr->getTexture("bad", false), nullptr);
    EXPECT_EQ(texMgr->getTexture("none", false), nullptr);
    EXPECT_EQ(log.count("refused", ZU_LOG_WARN), 1);
}

TEST_F(ResourceOperationTest, ShaderOperationSwitchesAMaterialsProgram) {
    ZuMaterial* material = new ZuMaterial();
    EXPECT_EQ(material->getProgram(), 0u);
    run(new ZuOperateCreateShader(app, material, "screennor"));
    EXPECT_NE(material->getProgram(), 0u);
    run(new ZuOperateCreateShader(app, nullptr, "screennor"));  // nothing to switch
    run(new ZuOperatePlaySound(app, "s", "a.mp3", true));       // changes nothing
    material->release();
}
