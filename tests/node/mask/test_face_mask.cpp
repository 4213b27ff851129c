// The 2D face mask on the sample photo: design points land on the live
// landmarks (markers drawn into the mask at known design points) however the
// face is shifted, scaled, turned by the camera or mirrored; the mask waits
// for its package's "loaded" event; a "mask" item makes one node per person;
// broken face files or a missing picture draw nothing and say why.
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"
#include "node/mask/Zu2DFaceMaskSTNode.h"
#include "node/mask/ZuMaterialFace2d.h"
#include "parse/ZuParseMask.h"
#include "render/texture/ZuPngWriter.h"
#include "render/texture/ZuTexMgr.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "node/mask/FacePhotoFixture.h"

#include <rapidjson/document.h>

#include <chrono>
#include <cmath>
#include <thread>

namespace {

const int kDesignW = 700, kDesignH = 1004;
// Landmarks that carry a marker: chin, nose bottom, both pupils, a brow and
// the nose bridge. Points on the mouth's hole or far out on the stretched
// outline would lose part of their marker to the hole or to the shear.
const int kMarked[] = {16, 49, 104, 105, 35, 44};

bool isMarker(const uint8_t* p) { return p[1] > 180 && p[0] < 90 && p[2] < 90; }

class FaceMaskTest : public FacePhotoFixture {
protected:
    std::vector<std::string> resourceRoots() const override { return {dir.path(), sourceAssets()}; }

    // A transparent picture with green squares of 17 design pixels centred
    // on the design points of kMarked (rows top first, design y counts up).
    std::string writeMarkerMask(const Zu2DFaceMaskNode* node) {
        Bytes rgba(static_cast<size_t>(kDesignW) * kDesignH * 4, 0);
        for (int id : kMarked) {
            const float* p = node->getStandardPoint(id);
            if (!p) continue;
            const int cx = static_cast<int>(std::lround(p[0])), cy = static_cast<int>(std::lround(kDesignH - p[1]));
            for (int y = cy - 8; y <= cy + 8; ++y)
                for (int x = cx - 8; x <= cx + 8; ++x) {
                    if (x < 0 || y < 0 || x >= kDesignW || y >= kDesignH) continue;
                    uint8_t* q = &rgba[(static_cast<size_t>(y) * kDesignW + x) * 4];
                    q[1] = q[3] = 255;
                }
        }
        ZuPngWriter writer(app);
        const std::string path = dir.path() + "markers.png";
        EXPECT_EQ(writer.write(path.c_str(), kDesignW, kDesignH, rgba.data()), 1);
        return path;
    }
    Zu2DFaceMaskSTNode* addMask(const char* picture) {
        auto* node = addNode<Zu2DFaceMaskSTNode>("Zu2DFaceMaskSTNode", "mask", 1);
        if (!node) return nullptr;
        node->initMesh(FACEMASK2D_FULL);
        auto* material = new ZuMaterialFace2d(app);
        material->init();
        if (picture) material->setMaskTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync(picture));
        node->setMaterial(material);
        material->release();
        return node;
    }
    void announceLoaded(int resUID) {
        auto* event = new ZuEffectEvent(kScene, ZU_EVENT_EFFECT);
        event->resUID = resUID;
        app->getGlobalMgr()->getEventMgr()->pushEvent(event);
    }
    // Centroid of marker pixels within 8 pixels of (x, y); false if none.
    static bool markerNear(const Bytes& pic, float x, float y, double* mx, double* my) {
        double sx = 0, sy = 0, n = 0;
        for (int py = static_cast<int>(y) - 8; py <= static_cast<int>(y) + 8; ++py)
            for (int px = static_cast<int>(x) - 8; px <= static_cast<int>(x) + 8; ++px) {
                if (px < 0 || py < 0 || px >= kSize || py >= kSize) continue;
                if (!isMarker(&pic[(static_cast<size_t>(py) * kSize + px) * 4])) continue;
                sx += px + 0.5, sy += py + 0.5, n += 1;
            }
        if (n == 0) return false;
        *mx = sx / n, *my = sy / n;
        return true;
    }
    // Every marker within 2 pixels of its live point.
    void expectMarkersOnFace(const Zu2DFaceMaskNode* node, const char* what) {
        SCOPED_TRACE(what);
        ASSERT_GT(node->getLiveCount(), 0);
        const Bytes pic = picture();
        dump(pic, std::string("mask_") + what);
        for (int id : kMarked) {
            const float* live = node->getFaceData() + id * 2;
            double mx = 0, my = 0;
            ASSERT_TRUE(markerNear(pic, live[0], live[1], &mx, &my)) << "point " << id << " at " << live[0] << ","
                                                                      << live[1];
            EXPECT_LE(std::hypot(mx - live[0], my - live[1]), 2.0) << "point " << id;
        }
    }

    TempDir dir;
};

} // namespace

TEST_F(FaceMaskTest, DesignPointsLandOnTheLiveFaceThroughMovesTurnsAndMirror) {
    auto* node = addMask(nullptr);
    ASSERT_NE(node, nullptr);
    ASSERT_EQ(node->getPointCount(), 211);
    static_cast<ZuMaterialFace2d*>(node->getMaterial())
        ->setMaskTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync(writeMarkerMask(node).c_str()));
    const Bytes plain = picture();
    frame();
    EXPECT_EQ(picture(), plain) << "hidden until the package says it is loaded";
    announceLoaded(7);
    frame();
    frame();
    ASSERT_TRUE(node->isVisible());
    expectMarkersOnFace(node, "as photographed");

    // The photo moved and shrunk about its centre, the record with it.
    const Bytes original = photo;
    const std::vector<StFace> originalFaces = faces;
    const struct { float dx, dy, scale; const char* what; } moves[] = {
        {40, -30, 1.0f, "shifted"}, {0, 0, 0.8f, "scaled"}, {-25, 20, 1.15f, "shifted and enlarged"}};
    for (const auto& m : moves) {
        const float c = kSize / 2.0f;
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                const int sx = static_cast<int>(std::floor(c + (x - m.dx - c) / m.scale));
                const int sy = static_cast<int>(std::floor(c + (y - m.dy - c) / m.scale));
                uint8_t* q = &photo[(static_cast<size_t>(y) * kSize + x) * 4];
                if (sx < 0 || sy < 0 || sx >= kSize || sy >= kSize) q[0] = q[1] = q[2] = 90;
                else std::memcpy(q, &original[(static_cast<size_t>(sy) * kSize + sx) * 4], 4);
            }
        std::vector<StFace> moved = originalFaces;
        for (size_t i = 0; i < moved[0].xy.size(); i += 2) {
            moved[0].xy[i] = c + (moved[0].xy[i] - c) * m.scale + m.dx;
            moved[0].xy[i + 1] = c + (moved[0].xy[i + 1] - c) * m.scale + m.dy;
        }
        record = stRecord(moved);
        frame();
        frame();
        expectMarkersOnFace(node, m.what);
    }
    photo = original;
    record = stRecord(originalFaces);

    // The camera turned: frame and landmarks turn together.
    for (int angle : {90, 180, 270}) {
        config->getCamera(kScene)->angle = angle;
        frame();
        frame();
        expectMarkersOnFace(node, ("camera at " + std::to_string(angle)).c_str());
    }
    config->getCamera(kScene)->angle = 0;
    config->getCamera(kScene)->mirror = true;
    frame();
    frame();
    expectMarkersOnFace(node, "mirrored camera");
}

TEST_F(FaceMaskTest, MaskItemMakesOneNodePerPersonWithItsPicture) {
    rapidjson::Document item;
    item.Parse(R"({"type":"mask","id":"paint","typemesh":"default","images":["a.png","paint.png"]})");
    ZuParseData* data = ZuParseMask::parseMask(app, item, 7, kScene, "pkg/");
    ASSERT_NE(data, nullptr);
    data->generate(7, kScene, const_cast<char*>("pkg/"));
    int made = 0;
    for (int person = 1; person <= 4; ++person) {
        auto* node = dynamic_cast<Zu2DFaceMaskSTNode*>(nodes->getNode(("m_paint_" + std::to_string(person) + "_7").c_str()));
        if (!node) continue;
        ++made;
        EXPECT_EQ(node->getpersonID(), person);
        EXPECT_FALSE(node->isVisible());
        auto* material = dynamic_cast<ZuMaterialFace2d*>(node->getMaterial());
        ASSERT_NE(material, nullptr);
        ASSERT_NE(material->getMaskTexture(), nullptr) << "the last image stays";
    }
    EXPECT_EQ(made, 4);
    data->release();

    // No pictures: refused with a log line.
    LogCapture log;
    item.Parse(R"({"type":"mask","id":"bare"})");
    EXPECT_EQ(ZuParseMask::parseMask(app, item, 8, kScene, "pkg/"), nullptr);
    EXPECT_GT(log.count("no \"images\""), 0);
}

TEST_F(FaceMaskTest, MissingPictureDrawsNothingAndSaysWhy) {
    LogCapture log;
    auto* node = addMask((dir.path() + "nothere.png").c_str());
    ASSERT_NE(node, nullptr);
    const Bytes plain = picture();
    announceLoaded(7);
    for (int i = 0; i < 3; ++i) frame();
    EXPECT_EQ(picture(), plain);
    EXPECT_GT(log.count("nothere.png"), 0);
}

// Face files the resource folder overrides: one with the wrong point count,
// one mesh that is not JSON. Both leave the node silent, with a log line.
class BrokenFaceFilesTest : public FaceMaskTest {
protected:
    void SetUp() override {
        std::string face = R"({"param":{"facepoints_count":3,"design_img_width":700,"design_img_height":1004},"data":[1,2,3,4,5,6]})";
        dir.write("shader/mesh/standerface_st.json", face);
        dir.write("shader/mesh/facemesh_st_simplify.json", "{not json");
        FaceMaskTest::SetUp();
    }
};

TEST_F(BrokenFaceFilesTest, WrongCountsAndBadMeshesDrawNothing) {
    LogCapture log;
    auto* full = addMask(nullptr);
    ASSERT_NE(full, nullptr);
    EXPECT_EQ(full->getPointCount(), 0);
    EXPECT_GT(log.count("holds 3 points"), 0);
    full->initMesh(FACEMASK2D_SIMPLIFY);
    EXPECT_EQ(full->getPointCount(), 0);
    EXPECT_GT(log.count("facemesh_st_simplify"), 0);
    const Bytes plain = picture();
    announceLoaded(7);
    frame();
    frame();
    EXPECT_EQ(full->getLiveCount(), 0);
    EXPECT_EQ(picture(), plain);
}
