// The engine's side of its contracts with callers: a refused call says why
// in the log, and nothing the engine made outlives it.
#include "basesys/Camera.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuLiveObjects.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

const char* kScene = "s";
const int kSide = 32;

class ContractTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override {
        return {QZ_SOURCE_DIR "/samples/packages/", sourceAssets()};
    }
    void SetUp() override {
        EngineTest::SetUp();
        host = app->getAppInter();
        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(kScene);
        camera->width = camera->height = kSide;
        camera->angle = 0;
        host->createLogicSceneFull(kScene, kSide, kSide, kSide, kSide);
        host->createBGNode(kScene, 4);  // RGBA frames
        frame();
        frame();
    }
    void pushFrame() {
        std::vector<uint8_t> rgba(kSide * kSide * 4, 128);
        host->pushCameraData(kScene, rgba.data(), static_cast<int>(rgba.size()));
        frame();
    }
    ZuAppNative* host = nullptr;
};

// A caller's mistake is refused with a log line that names the call and the
// values that broke it, and the engine goes on.
TEST_F(ContractTest, RefusedCallsSayWhatWentWrong) {
    ZuNodeCreator* creator = app->getGlobalMgr()->getNodeMgr()->getCreator();
    ZuNode* first = creator->createNode("ZuTimeOutNode", kScene, "first");
    ZuNode* second = creator->createNode("ZuTimeOutNode", kScene, "second");
    ZuNode* child = creator->createNode("ZuTimeOutNode", kScene, "child");
    ASSERT_TRUE(first && second && child);
    first->addChild(child);
    {
        LogCapture log;
        second->addChild(child);  // it already hangs under first
        EXPECT_EQ(log.count("child already hangs under first, not added under second", ZU_LOG_WARN), 1);
    }
    EXPECT_EQ(child->getParent(), first);
    EXPECT_EQ(second->getChildCount(), 0u);
    child->removeFromParent();
    second->addChild(child);  // moved the documented way
    EXPECT_EQ(child->getParent(), second);

    {
        LogCapture log;
        // An NV21 frame's length where the engine was told to expect RGBA: the
        // log names the format the engine expects and the bytes it needs.
        std::vector<uint8_t> nv21(kSide * kSide * 3 / 2, 0);
        host->pushCameraData(kScene, nv21.data(), static_cast<int>(nv21.size()));
        EXPECT_EQ(log.count("1536 bytes, but 32 x 32 in camera format RGBA (7) is 4096 bytes", ZU_LOG_WARN), 1);
    }
    {
        LogCapture log;
        app->setState("test", ZU_ENG_STATE_STOPPING);
        host->createLogicScene("late", 8, 8, 8, 8);
        host->loadEffect(kScene, "filter_pink");
        EXPECT_EQ(log.count("createLogicScene ignored: the engine is stopping", ZU_LOG_WARN), 1);
        EXPECT_EQ(log.count("loadEffect ignored: the engine is stopping", ZU_LOG_WARN), 1);
        app->setState("test", ZU_ENG_STATE_RUNNING);
    }
}

// A package loaded, drawn and deleted, then the engine stopped: no texture,
// material or framebuffer of the engine is left, and one kept by mistake
// breaks the engine's invariant at shutdown.
TEST_F(ContractTest, NothingTheEngineMadeOutlivesIt) {
    ZuLiveObjects* live = app->getLiveObjects();
    live->retain();
    pushFrame();
    host->loadEffect(kScene, "filter_pink", 40, 0);
    ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
    bool loaded = false;
    for (int i = 0; i < 1000 && !loaded; ++i) {
        pushFrame();
        loaded = nodes->getNode("s_look_0_40") != nullptr;
        if (!loaded) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_TRUE(loaded);
    for (int i = 0; i < 3; ++i) pushFrame();
    EXPECT_GT(live->alive(ZuLiveObjects::Kind::Texture), 0);
    EXPECT_GT(live->alive(ZuLiveObjects::Kind::Material), 0);
    host->delEffect(kScene, "filter_pink", 40);
    for (int i = 0; i < 3; ++i) pushFrame();
    EXPECT_EQ(nodes->getNode("s_look_0_40"), nullptr);

    ZuTexture* kept = new ZuTexture2D(app);
    std::vector<std::string> broken;
    ZuCheck::setInvariantHandler([&](const char* message) { broken.push_back(message); });
    app->setState("test", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    ZuCheck::setInvariantHandler([](const char* message) { ADD_FAILURE() << message; });
    ASSERT_EQ(broken.size(), 1u);
    EXPECT_NE(broken[0].find("1 texture(s) still alive"), std::string::npos) << broken[0];
    EXPECT_EQ(live->aliveTotal(), 1);
    kept->release();
    EXPECT_EQ(live->aliveTotal(), 0);
    live->release();
}

} // namespace
