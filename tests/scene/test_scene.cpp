// Logic scenes: their target, the frame walk that records into it, and the
// copy to the window; scene operations as a host's pushes would run them.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateCreateNode.h"
#include "operate/ZuOperateDeleteLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateSetSceneMirror.h"
#include "operate/ZuSceneVisible.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterialColorSelect2d.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/command/ZuRenderScene.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"

namespace {

using Pixel = std::vector<uint8_t>;

// Paints the left half of its scene red and the right half green, straight
// in clip space, into the overlay stream.
class HalvesNode : public ZuNode {
public:
    explicit HalvesNode(ZuAppMain* app) : ZuNode(app) {}
    void zuinit() override {
        left = makeMaterial(0xffff0000);
        right = makeMaterial(0xff00ff00);
        leftObject = new ZuRenderObject(app);
        rightObject = new ZuRenderObject(app);
    }
    void zudestroy() override {
        for (ZuMaterial* m : {left, right}) {
            if (!m) continue;
            m->destroy();
            m->release();
        }
        left = right = nullptr;
        qzSafeRelease(leftObject);
        qzSafeRelease(rightObject);
        ZuNode::zudestroy();
    }
    void update(float delta) override {
        ZuNode::update(delta);
        ZuRenderData* data = app->getGlobalMgr()->getRenderMgr()->getRenderData();
        // Left: the two left quarters; a full-height strip from two meshes.
        leftObject->setMesh(data->meshBottomLeft);
        leftObject->setMaterial(left);
        rightObject->setMesh(data->meshBottomRight);
        rightObject->setMaterial(right);
    }
    void render() override {
        ZuScene* scene = app->getGlobalParam()->activeScene;
        ZuRenderScene* target = scene ? scene->getRenderScene() : nullptr;
        leftObject->pushCmd(target, RS_OVERLAY, "left");
        rightObject->pushCmd(target, RS_OVERLAY, "right");
    }

private:
    ZuMaterial* makeMaterial(unsigned argb) {
        ZuMaterialColorSelect2d* m = new ZuMaterialColorSelect2d(app);
        m->init();
        m->setDepthTest(false);
        m->setColor(argb);
        return m;
    }
    ZuMaterial* left = nullptr;
    ZuMaterial* right = nullptr;
    ZuRenderObject* leftObject = nullptr;
    ZuRenderObject* rightObject = nullptr;
};

class SceneTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        scenes = app->getGlobalMgr()->getSceneMgr();
        nodes = app->getGlobalMgr()->getNodeMgr();
        nodes->getCreator()->registCreateFunc("HalvesNode", zuCreateNodeOfType<HalvesNode>);
    }
    static Pixel at(int x, int y) { return GLTest::readPixels(x, y, 1, 1); }
    static Pixel rgba(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {r, g, b, a}; }

    ZuSceneMgr* scenes = nullptr;
    ZuNodeMgr* nodes = nullptr;
};

} // namespace

TEST_F(SceneTest, ScenesRenderPortraitAndKeepTheirFirstSize) {
    ZuScene* landscape = scenes->createScene("wide", 64, 64, 1280, 720);
    ASSERT_NE(landscape, nullptr);
    ASSERT_NE(landscape->getFbo(), nullptr);
    EXPECT_EQ(landscape->getFbo()->getFrameWidth(), 720);
    EXPECT_EQ(landscape->getFbo()->getFrameHeight(), 1280);
    EXPECT_NE(landscape->getFbo()->getSecondTex(), nullptr);  // filters can swap
    EXPECT_EQ(scenes->createScene("wide", 10, 10, 20, 20), landscape);
    EXPECT_EQ(landscape->getWinWidth(), 64);
    EXPECT_EQ(landscape->getSceneWidth(), 1280);
    EXPECT_EQ(app->getGlobalParam()->activeScene, landscape);  // the first scene, until the first frame

    ZuScene* tall = scenes->createScene("tall", 64, 64, 720, 1280);
    EXPECT_EQ(tall->getFbo()->getFrameWidth(), 720);
    EXPECT_EQ(tall->getFbo()->getFrameHeight(), 1280);
    EXPECT_NE(tall->getRenderScene(), landscape->getRenderScene());
    EXPECT_EQ(app->getGlobalMgr()->getRenderMgr()->getRenderScene("tall"), tall->getRenderScene());

    frame();
    EXPECT_EQ(app->getGlobalParam()->activeScene, nullptr);  // none between frames
    EXPECT_TRUE(scenes->destroyScene("wide"));
    EXPECT_FALSE(scenes->destroyScene("wide"));
    EXPECT_EQ(app->getGlobalMgr()->getRenderMgr()->getRenderScene("wide"), nullptr);
}

TEST_F(SceneTest, AFrameDrawsTheTreeIntoTheTargetAndTheTargetToTheWindow) {
    push(new ZuOperateCreateLogicScene(app, "cam", 64, 64, 32, 64, SCALE_MODE_FULL));
    push(new ZuOperateCreateNode(app, "halves", "HalvesNode", "cam"));
    frame();
    ZuScene* scene = scenes->getScene("cam");
    ASSERT_NE(scene, nullptr);
    ASSERT_NE(nodes->getNode("halves"), nullptr);
    EXPECT_EQ(nodes->getNode("halves")->getParent(), scene);

    // Stretched to the window; the lower half carries the colours.
    EXPECT_EQ(at(8, 16), rgba(255, 0, 0, 255));
    EXPECT_EQ(at(56, 16), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(32, 56), rgba(0, 0, 0, 0));  // the scene target's clear colour

    // Not mirrored any more: the halves trade places.
    push(new ZuOperateSetSceneMirror(app, "cam", false));
    frame();
    EXPECT_EQ(at(8, 16), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(56, 16), rgba(255, 0, 0, 255));

    // At its own size, centred: 32 wide in a 64-wide window.
    scene->setMirror(true);
    scene->setScaleMode(SCALE_MODE_CENTER);
    frame();
    EXPECT_EQ(at(4, 16), rgba(0, 0, 0, 0));
    EXPECT_EQ(at(20, 16), rgba(255, 0, 0, 255));
    EXPECT_EQ(at(44, 16), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(60, 16), rgba(0, 0, 0, 0));

    // Hidden: nothing is replayed for it, so the window keeps what it had.
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    ZuSceneVisible::apply(app, "cam", false);
    frame();
    EXPECT_EQ(at(20, 16), rgba(0, 0, 255, 255));
    EXPECT_EQ(scene->getRenderScene()->pendingCount(), 0);
    push(new ZuSceneVisible(app, "cam", true));
    frame();
    EXPECT_EQ(at(20, 16), rgba(255, 0, 0, 255));
}

TEST_F(SceneTest, DeletingASceneDeletesItsWholeTree) {
    push(new ZuOperateCreateLogicScene(app, "gone", 64, 64, 64, 64, SCALE_MODE_FULL));
    push(new ZuOperateCreateNode(app, "a", "HalvesNode", "gone"));
    push(new ZuOperateCreateNode(app, "b", "HalvesNode", "gone"));
    push(new ZuOperateCreateNode(app, "other", "HalvesNode", "elsewhere"));  // no such scene: not in a tree
    frame();
    ZuNode* a = nodes->getNode("a");
    ZuNode* b = nodes->getNode("b");
    ASSERT_NE(a, nullptr);
    a->removeFromParent();
    scenes->getScene("gone")->addChild(a);
    a->addChild(b);  // nested: b's entry in the registry must go too
    EXPECT_EQ(nodes->size(), 3);

    push(new ZuOperateDeleteLogicScene(app, "gone"));
    push(new ZuOperateDeleteLogicScene(app, "never"));  // unknown: nothing happens
    frame();
    EXPECT_EQ(scenes->getScene("gone"), nullptr);
    EXPECT_EQ(nodes->getNode("a"), nullptr);
    EXPECT_EQ(nodes->getNode("b"), nullptr);
    EXPECT_NE(nodes->getNode("other"), nullptr);
    EXPECT_EQ(nodes->size(), 1);
}

TEST_F(SceneTest, ScenesCanDrawIntoTheHostsFramebuffer) {
    GLuint hostFbo = 0, hostTex = 0;
    glGenTextures(1, &hostTex);
    glBindTexture(GL_TEXTURE_2D, hostTex);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 32, 64, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glGenFramebuffers(1, &hostFbo);
    glBindFramebuffer(GL_FRAMEBUFFER, hostFbo);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, hostTex, 0);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);

    ZuScene* scene = scenes->createOutTexScene("host", 64, 64, 32, 64, hostTex);
    ASSERT_NE(scene, nullptr);
    EXPECT_TRUE(scene->isOuterTarget());
    ZuNode* halves = nodes->getCreator()->createNode("HalvesNode", "host", "h");
    scene->addChild(halves);
    frame();
    glBindFramebuffer(GL_FRAMEBUFFER, hostFbo);
    EXPECT_EQ(at(4, 4), rgba(255, 0, 0, 255));
    EXPECT_EQ(at(28, 4), rgba(0, 255, 0, 255));
    glBindFramebuffer(GL_FRAMEBUFFER, 0);

    scenes->destroyScene("host");
    glDeleteFramebuffers(1, &hostFbo);
    glDeleteTextures(1, &hostTex);
}
