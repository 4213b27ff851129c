// The host's door: what each guard lets through, and what happens at once
// versus in the next frame.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuFaceBeautifyEvent.h"
#include "render/ZuRenderMgr.h"
#include "render/command/ZuRenderScene.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/GLTest.h"

namespace {

class BeautySpy : public ZuEventProc {
public:
    explicit BeautySpy(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event->type == ZU_EVENT_FACE_BEAUTIFY) {
            auto* e = static_cast<ZuFaceBeautifyEvent*>(event);
            seen.push_back({e->sceneName.c_str(), e->id, e->v0, e->v1});
        }
        return true;
    }
    struct Seen {
        std::string scene;
        int id;
        float smooth, white;
    };
    std::vector<Seen> seen;
};

class AppNativeTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        app = new ZuAppMain();
        app->init();
        host = app->getAppInter();
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void frame() {
        app->update();
        app->directrender("");
    }
    ZuSceneMgr* scenes() { return app->getGlobalMgr()->getSceneMgr(); }

    ZuAppMain* app = nullptr;
    ZuAppNative* host = nullptr;
};

} // namespace

TEST_F(AppNativeTest, ScenesAskedForBeforeTheStartNeverAppear) {
    host->createLogicScene("early", 64, 64, 64, 64);  // state 0: refused
    app->initZuBase();
    frame();
    EXPECT_EQ(scenes()->getScene("early"), nullptr);

    host->createLogicScene("late", 64, 64, 64, 64);
    EXPECT_EQ(scenes()->getScene("late"), nullptr);  // not before the frame
    frame();
    ASSERT_NE(scenes()->getScene("late"), nullptr);
    EXPECT_EQ(scenes()->getScene("late")->getAdapt()->getScaleMode(), SCALE_MODE_CENTER);
    host->createLogicSceneFull("full", 64, 64, 64, 64);
    frame();
    EXPECT_EQ(scenes()->getScene("full")->getAdapt()->getScaleMode(), SCALE_MODE_FULL);

    host->destoryLogicScene("late");
    frame();
    EXPECT_EQ(scenes()->getScene("late"), nullptr);

    app->setState("test", ZU_ENG_STATE_STOPPING);
    host->createLogicScene("stopping", 64, 64, 64, 64);
    app->setState("test", ZU_ENG_STATE_RUNNING);
    frame();
    EXPECT_EQ(scenes()->getScene("stopping"), nullptr);
}

TEST_F(AppNativeTest, VisibilityAndMirrorsTakeEffectWhereTheyShould) {
    app->initZuBase();
    host->createLogicScene("s", 64, 64, 64, 64);
    frame();
    ZuRenderScene* renderScene = app->getGlobalMgr()->getRenderMgr()->getRenderScene("s");
    ASSERT_NE(renderScene, nullptr);
    host->setSceneVisible("s", false);
    EXPECT_FALSE(renderScene->getVisible());  // at once, before any frame
    EXPECT_FALSE(scenes()->getScene("s")->isVisible());
    host->setSceneVisible("s", true);
    frame();
    EXPECT_TRUE(renderScene->getVisible());

    host->setCameraMirror("s", true);
    EXPECT_TRUE(app->getGlobalMgr()->getConfig()->getCamera("s")->mirror);
    host->setSceneMirror("s", false);
    EXPECT_TRUE(scenes()->getScene("s")->getMirror());
    frame();
    EXPECT_FALSE(scenes()->getScene("s")->getMirror());
}

TEST_F(AppNativeTest, BeautyDialsBecomeEventsAndTheOneValueFormSetsBoth) {
    app->initZuBase();
    BeautySpy* spy = new BeautySpy(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(spy);
    host->updateFaceBeautifySmooth("s", 7, 0.4f);
    host->updateFaceBeautify("s", 7, 0.4f, 0.4f);
    frame();
    frame();
    ASSERT_EQ(spy->seen.size(), 2u);
    EXPECT_EQ(spy->seen[0].scene, "s");
    EXPECT_EQ(spy->seen[0].id, 7);
    EXPECT_FLOAT_EQ(spy->seen[0].smooth, spy->seen[1].smooth);
    EXPECT_FLOAT_EQ(spy->seen[0].white, spy->seen[1].white);
    EXPECT_FLOAT_EQ(spy->seen[0].white, 0.4f);
    app->getGlobalMgr()->getEventMgr()->unregistProcer(spy);
    spy->release();
}

TEST_F(AppNativeTest, ImmediateEffectDeletionHappensBeforeTheCallReturns) {
    app->initZuBase();
    ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
    ZuNode* root = nodes->getPackageNode("s", 33);
    ASSERT_NE(root, nullptr);
    host->delEffect("s", "ignored", 33);
    EXPECT_NE(nodes->getNode("s33"), nullptr);  // the plain form waits for the frame
    host->delEffectInstenImmediately("s", "ignored", 33);
    EXPECT_EQ(nodes->getNode("s33"), nullptr);
    frame();  // the queued deletion finds nothing left
}
