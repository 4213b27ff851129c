// Head pictures handed in with a package ride on a skeletal sticker's bone,
// cut by the package's mask and framed; the stencil and cover nodes of the
// same family.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "node/mask/ZuCoverMaskNode.h"
#include "node/mask/ZuHeadNode.h"
#include "node/mask/ZuStencilNode.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "parse/SpineHeadRes.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/texture/ZuPngWriter.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/TempDir.h"

#include <cmath>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

const int kSize = 256;

class HeadNodeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ZuGlobalMgr* managers = app->getGlobalMgr();
        managers->getConfig()->setSize(kSize, kSize);
        scene = createSquareScene("s", kSize, false);
        ASSERT_NE(scene, nullptr);
    }
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    static const uint8_t* at(const std::vector<uint8_t>& pixels, float x, float y) {
        const int ix = std::max(0, std::min(kSize - 1, static_cast<int>(x)));
        const int iy = std::max(0, std::min(kSize - 1, static_cast<int>(y)));
        return &pixels[(static_cast<size_t>(iy) * kSize + ix) * 4];
    }
    // The sample dancer, with or without a blue 32 x 32 head for its "head" bone.
    ZuAniSpineNode* loadDancer(bool withHead) {
        const std::string path = std::string(QZ_SOURCE_DIR) + "/samples/packages/head_picture";
        std::vector<uint8_t> blue;
        for (int i = 0; i < 32 * 32; ++i) blue.insert(blue.end(), {0, 0, 255, 255});
        qz::array<SpineHeadRes> heads;
        if (withHead) {
            SpineHeadRes head;
            head.first = "dancer";
            head.second = "head";
            head.pixels = blue.data();
            head.width = head.height = 32;
            heads.push_back(head);
        }
        app->getAppInter()->loadEffect("s", path.c_str(), 9, 0, &heads);
        EXPECT_EQ(heads.size(), 0u);  // taken over
        ZuAniSpineNode* node = nullptr;
        for (int i = 0; i < 300 && !(node && node->isReady()); ++i) {
            frame();
            node = dynamic_cast<ZuAniSpineNode*>(app->getGlobalMgr()->getNodeMgr()->getNode("s_dancer_0_9"));
            usleep(2000);
        }
        frame();
        return node;
    }

    ZuScene* scene = nullptr;
};

} // namespace

TEST_F(HeadNodeTest, TheHostsHeadRidesOnTheBoneCutRoundByTheMaskAndFramed) {
    ZuAniSpineNode* dancer = loadDancer(true);
    ASSERT_NE(dancer, nullptr);
    auto* head = dynamic_cast<ZuHeadNode*>(app->getGlobalMgr()->getNodeMgr()->getNode("sdancerhead1"));
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(head->getParent(), dancer);
    ASSERT_NE(head->getMaskTexture(), nullptr);
    ASSERT_NE(head->getFrameTexture(), nullptr);
    frame();
    ASSERT_TRUE(head->getShow());
    float x = 0, y = 0;
    ASSERT_TRUE(dancer->getHeadNodePosition(x, y, "head"));
    float w = 150, h = 150;
    dancer->setHeadNodeScale("head", w, h);
    const std::vector<uint8_t> pixels = scenePixels();
    // The middle of the head is the host's blue picture.
    const uint8_t* middle = at(pixels, x, y);
    EXPECT_GT(middle[2], 200) << x << "," << y;
    EXPECT_LT(middle[0], 60);
    // Near the quad's corners the round mask has cut it away.
    for (int cx : {-1, 1})
        for (int cy : {-1, 1}) {
            const uint8_t* corner = at(pixels, x + cx * 0.42f * w, y + cy * 0.42f * h);
            EXPECT_FALSE(corner[2] > 200 && corner[0] < 60 && corner[1] < 60) << "corner " << cx << "," << cy;
        }
    // The gold ring of the frame is laid over the head's rim.
    int gold = 0;
    for (float t = 0; t < 6.28f; t += 0.1f) {
        const uint8_t* rim = at(pixels, x + std::cos(t) * 0.465f * w, y + std::sin(t) * 0.465f * h);
        gold += rim[0] > 150 && rim[1] > 100;
    }
    EXPECT_GT(gold, 20);

    // The dancer stops: its head goes with it.
    dancer->stop();
    for (int i = 0; i < 3; ++i) frame();
    EXPECT_EQ(app->getGlobalMgr()->getNodeMgr()->getNode("sdancerhead1"), nullptr);
}

TEST_F(HeadNodeTest, WithoutAHeadPictureNoHeadNodeIsMade) {
    ZuAniSpineNode* dancer = loadDancer(false);
    ASSERT_NE(dancer, nullptr);
    EXPECT_EQ(app->getGlobalMgr()->getNodeMgr()->getNode("sdancerhead1"), nullptr);
    EXPECT_EQ(dancer->getChildCount(), 0u);
}

TEST_F(HeadNodeTest, AStencilQuadLimitsWhereACoverDraws) {
    TempDir dir;
    std::vector<uint8_t> red;
    for (int i = 0; i < 8 * 8; ++i) red.insert(red.end(), {255, 0, 0, 255});
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "red.png").c_str(), 8, 8, red.data()), 1);
    ZuNodeCreator* creator = app->getGlobalMgr()->getNodeMgr()->getCreator();
    auto* stencil = dynamic_cast<ZuStencilNode*>(creator->createNode("ZuStencilNode", "s", "stencil"));
    auto* cover = dynamic_cast<ZuCoverMaskNode*>(creator->createNode("ZuCoverMaskNode", "s", "cover"));
    ASSERT_TRUE(stencil && cover);
    // The left half of the picture, in scene pixels.
    auto* mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2);
    mesh->setVertexNum(4);
    const float quad[8] = {0, 0, kSize / 2.0f, 0, 0, kSize, kSize / 2.0f, kSize};
    const uint16_t indices[6] = {0, 1, 2, 2, 1, 3};
    mesh->setVertexData(quad, sizeof quad);
    mesh->setIndexData(indices, sizeof indices, 6);
    stencil->setMesh(mesh);
    mesh->release();
    cover->setMaskTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync((dir.path() + "red.png").c_str(), true, false));
    cover->getMaterial()->setStencilTest(true);
    cover->getMaterial()->setStencilFunc(GL_EQUAL, 1, 255);
    cover->getMaterial()->setStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    scene->addChild(stencil);
    scene->addChild(cover);
    frame();
    frame();
    const std::vector<uint8_t> pixels = scenePixels();
    EXPECT_GT(at(pixels, kSize * 0.25f, kSize * 0.5f)[0], 200);
    EXPECT_LT(at(pixels, kSize * 0.75f, kSize * 0.5f)[0], 50);
}
