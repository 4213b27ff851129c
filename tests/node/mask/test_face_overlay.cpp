// The real-face overlays: the person's own face drawn back over a mask that
// covers the whole frame, and the camera face laid onto the "hg01" target
// shape on the AS tracker (and refused, with a log line, on another).
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"
#include "node/mask/FacePhotoFixture.h"
#include "node/mask/Zu2DFaceChangeTargetNode.h"
#include "node/mask/Zu2DFaceMaskSTNode.h"
#include "node/mask/Zu2DFaceRealNode.h"
#include "node/mask/ZuMaterialFace2d.h"
#include "render/texture/ZuTexMgr.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <cmath>

namespace {

class FaceOverlayTest : public FacePhotoFixture {
protected:
    void announceLoaded(int resUID) {
        auto* event = new ZuEffectEvent(kScene, ZU_EVENT_EFFECT);
        event->resUID = resUID;
        app->getGlobalMgr()->getEventMgr()->pushEvent(event);
    }
    const uint8_t* at(const Bytes& pic, float x, float y) const {
        return &pic[(static_cast<size_t>(y) * kSize + static_cast<size_t>(x)) * 4];
    }
    static int distance(const uint8_t* a, const uint8_t* b) {
        return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
    }
};

class ChangeTargetTest : public FaceOverlayTest {
protected:
    const char* recordFile() const override { return "faces/astronaut.as.rec"; }
    int detectType() const override { return DETECTTYPE_AS; }
};

} // namespace

TEST_F(FaceOverlayTest, OwnFaceShowsThroughAFullFrameMask) {
    TempDir dir;
    Bytes green(static_cast<size_t>(700) * 1004 * 4, 0);
    for (size_t i = 0; i < green.size(); i += 4) green[i + 1] = green[i + 3] = 255;
    ZuPngWriter(app).write((dir.path() + "green.png").c_str(), 700, 1004, green.data());
    auto* mask = addNode<Zu2DFaceMaskSTNode>("Zu2DFaceMaskSTNode", "cover", 1);
    ASSERT_NE(mask, nullptr);
    mask->initMesh(FACEMASK2D_FULL);
    auto* material = new ZuMaterialFace2d(app);
    material->init();
    material->setMaskTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync((dir.path() + "green.png").c_str()));
    mask->setMaterial(material);
    material->release();
    auto* real = addNode<Zu2DFaceRealNode>("Zu2DFaceRealNode", "self", 1);
    ASSERT_NE(real, nullptr);
    const Bytes plain = picture();
    announceLoaded(7);
    frame();
    frame();
    ASSERT_TRUE(real->isVisible());
    ASSERT_TRUE(real->isDrawing());
    const Bytes out = picture();
    dump(out, "real_face_over_mask");
    const uint8_t kGreen[3] = {0, 255, 0};
    EXPECT_LE(distance(at(out, 5, 5), kGreen), 6) << "the mask covers the frame";
    EXPECT_LE(distance(at(out, 500, 300), kGreen), 6);
    const float* f = person(1)->getFaceData();
    for (int id : {49, 104, 105, 87, 16}) {
        const float x = f[id * 2], y = f[id * 2 + 1];
        EXPECT_LE(distance(at(out, x, y), at(plain, x, y)), 12) << "landmark " << id << " shows the camera";
    }
}

TEST_F(ChangeTargetTest, CameraFaceTakesTheTargetShapeOnAS) {
    auto* node = addNode<Zu2DFaceChangeTargetNode>("Zu2DFaceChangeTargetNode", "doll", 1);
    ASSERT_NE(node, nullptr);
    const Bytes plain = picture();
    announceLoaded(7);
    for (int i = 0; i < 4; ++i) frame();
    ASSERT_TRUE(node->isDrawing());
    const Bytes out = picture();
    dump(out, "change_target_hg01");
    // The target's chin sits higher than the live one: the face is reshaped.
    ZuPerson* p = person(1);
    EXPECT_GT(p->getTargetFaceData()[9 * 2 + 1], p->getFaceData()[9 * 2 + 1] + 1.0f);
    EXPECT_NE(out, plain);
    // The face changes most: eyes, nose and lips against the frame's rim,
    // where the stretched outer triangles only resample the camera picture.
    const float* f = p->getFaceData();
    double face = 0, rim = 0;
    for (int i = 39; i <= 94; ++i) face += distance(at(out, f[i * 2], f[i * 2 + 1]), at(plain, f[i * 2], f[i * 2 + 1]));
    for (int i = 0; i < 56; ++i) rim += distance(at(out, 4.0f + i * 9, 4), at(plain, 4.0f + i * 9, 4));
    std::printf("change face: mean change %.1f on the face, %.1f on the rim\n", face / 56, rim / 56);
    EXPECT_GT(face, 4 * rim + 56 * 10);

    // Gone with the node: the person's copy target is off again.
    scene->removeChild(node);
    frame();
}

TEST_F(FaceOverlayTest, ChangeTargetNeedsTheASLayout) {
    LogCapture log;
    auto* node = addNode<Zu2DFaceChangeTargetNode>("Zu2DFaceChangeTargetNode", "doll", 1);
    ASSERT_NE(node, nullptr);
    const Bytes plain = picture();
    announceLoaded(7);
    frame();
    frame();
    EXPECT_FALSE(node->isDrawing());
    EXPECT_EQ(picture(), plain);
    EXPECT_EQ(log.count("needs the AS tracker"), 1);
}

// Packages and hosts make these by type name alone.
TEST_F(FaceOverlayTest, EveryFaceNodeIsMadeByItsName) {
    for (const char* type :
         {"Zu2DFaceMaskASNode", "Zu2DFaceMaskSTNode", "Zu2DFaceMaskFPNode", "Zu2DFaceMaskZUNode", "Zu2DFaceRealNode",
          "Zu2DFaceChangeTargetNode", "Zu2DChangeFaceNode", "Zu2DChangeFaceASNode", "ZuSwapFaceASNode", "ZuSwapFaceSTNode",
          "ZuSwapFaceFPNode", "ZuSmallFaceNode", "ZuSmallShortFaceNode", "ZuKejiSmallShortFaceNode", "ZuPigFaceNode",
          "ZuSmallShrinkFaceNode", "ZuSmallShortShrinkNode"}) {
        ZuNode* node = nodes->getCreator()->createNode(type, kScene, type);
        ASSERT_NE(node, nullptr) << type;
        EXPECT_EQ(node->getType(), qz::string(type));
    }
}
