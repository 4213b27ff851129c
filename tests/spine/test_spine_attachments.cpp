// Attachments and what animations do to slots: world vertices of regions
// and meshes (plain and weighted), deform keys, colour, attachment and
// draw-order keys, skins and linked meshes.
#include "SpineTestSupport.h"

#include <string>
#include <vector>

using namespace spinetest;

namespace {

// Bone "b" at (100, 50), unrotated; bone "r" at (100, 0) turned 90 degrees.
// Region "quad" on b: 40 x 20 turned 90 and moved by (10, 5).
const char* kSlots = R"({
  "bones": [
    {"name": "root"},
    {"name": "b", "parent": "root", "x": 100, "y": 50},
    {"name": "r", "parent": "root", "x": 100, "rotation": 90}
  ],
  "slots": [
    {"name": "s0", "bone": "b", "attachment": "quad"},
    {"name": "s1", "bone": "b", "attachment": "mesh", "color": "80ff00ff"},
    {"name": "s2", "bone": "root", "attachment": "weighted"},
    {"name": "s3", "bone": "b"}
  ],
  "skins": {
    "default": {
      "s0": {
        "quad": {"path": "r", "x": 10, "y": 5, "rotation": 90, "width": 40, "height": 20},
        "other": {"path": "rot", "width": 20, "height": 40}
      },
      "s1": {"mesh": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 0, 1, 1, 0, 1],
                      "triangles": [0, 1, 2, 2, 3, 0], "vertices": [0, 0, 10, 0, 10, 10, 0, 10], "hull": 4}},
      "s2": {"weighted": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 1],
                          "triangles": [0, 1, 0],
                          "vertices": [2, 0, 10, 0, 0.5, 2, 10, 0, 0.5,
                                       1, 2, 0, 10, 1]}},
      "s3": {"box": {"type": "boundingbox", "vertexCount": 3, "vertices": [0, 0, 10, 0, 0, 10]}}
    },
    "alt": {
      "s0": {"quad": {"path": "rot", "width": 40, "height": 20}},
      "s3": {"box": {"type": "boundingbox", "vertexCount": 3, "vertices": [0, 0, 20, 0, 0, 20]}}
    }
  },
  "animations": {
    "deform": {"deform": {"default": {
      "s1": {"mesh": [{"time": 0}, {"time": 1, "offset": 2, "vertices": [4, 0, 4, 6]}]},
      "s2": {"weighted": [{"time": 0}, {"time": 1, "vertices": [0, 10, 0, 10]}]}
    }}},
    "color": {"slots": {"s1": {"color": [{"time": 0, "color": "ffffffff"}, {"time": 1, "color": "00000000", "curve": "stepped"},
                                         {"time": 2, "color": "ff000080"}]}}},
    "swap": {"slots": {"s0": {"attachment": [{"time": 0, "name": "quad"}, {"time": 0.5, "name": null},
                                             {"time": 1, "name": "other"}]}}},
    "order": {"drawOrder": [
      {"time": 0, "offsets": [{"slot": "s3", "offset": -3}]},
      {"time": 1, "offsets": [{"slot": "s0", "offset": 2}]},
      {"time": 2}
    ]}
  }
})";

class Attachments : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(rig.load(kSlots)) << rig.error();
        rig.skeleton->x = 7;
        rig.skeleton->y = 3;
    }
    std::vector<float> meshVertices(const char* slotName) {
        spSlot* slot = rig.slot(slotName);
        spMeshAttachment* mesh = (spMeshAttachment*)slot->attachment;
        std::vector<float> out(mesh->super.worldVerticesLength);
        spMeshAttachment_computeWorldVertices(mesh, slot, out.data());
        return out;
    }
    Rig rig;
};

void expectVertices(const std::vector<float>& actual, const std::vector<float>& expected, float tolerance = 1e-3f) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < expected.size(); i++) EXPECT_NEAR(actual[i], expected[i], tolerance) << "index " << i;
}

} // namespace

TEST_F(Attachments, RegionCornersInTheWorld) {
    spSlot* slot = rig.slot("s0");
    ASSERT_EQ(slot->attachment->type, SP_ATTACHMENT_REGION);
    spRegionAttachment* region = (spRegionAttachment*)slot->attachment;
    // Corners (-20,-10), (-20,10), (20,10), (20,-10) turned 90: (10,-20),
    // (-10,-20), (-10,20), (10,20); moved by (10, 5).
    expectVertices(std::vector<float>(region->offset, region->offset + 8), {20, -15, 0, -15, 0, 25, 20, 25});
    std::vector<float> world(8);
    spRegionAttachment_computeWorldVertices(region, slot->bone, world.data());
    // Plus the bone at (100, 50) and the skeleton at (7, 3).
    expectVertices(world, {127, 38, 107, 38, 107, 78, 127, 78});
    // "r" is 40x20 at the page's corner, page 128x128.
    expectVertices(std::vector<float>(region->uvs, region->uvs + 8),
                   {0, 0.15625f, 0, 0, 0.3125f, 0, 0.3125f, 0.15625f}, 1e-6f);
    EXPECT_EQ(region->rendererObject, spAtlas_findRegion(rig.atlas, "r"));
}

TEST(SpineRegion, TrimmedRegionSitsInItsOriginalRectangle) {
    // 40x20 trimmed out of 50x30 with 5 pixels cut left and below: the
    // image spans (-25+5, -15+5) to (-25+5+40, -15+5+20) at scale 1.
    spRegionAttachment* region = spRegionAttachment_create("t");
    region->width = 50;
    region->height = 30;
    region->regionOriginalWidth = 50;
    region->regionOriginalHeight = 30;
    region->regionWidth = 40;
    region->regionHeight = 20;
    region->regionOffsetX = 5;
    region->regionOffsetY = 5;
    spRegionAttachment_updateOffset(region);
    const float expected[8] = {-20, -10, -20, 10, 20, 10, 20, -10};
    for (int i = 0; i < 8; i++) EXPECT_NEAR(region->offset[i], expected[i], 1e-4) << i;
    // Scaled twice as wide, the image and its margins double.
    region->scaleX = 2;
    spRegionAttachment_updateOffset(region);
    EXPECT_NEAR(region->offset[0], -40, 1e-4);
    EXPECT_NEAR(region->offset[4], 40, 1e-4);
    spAttachment_dispose(&region->super);
}

TEST_F(Attachments, RotatedRegionsAgreeBetweenQuadsAndMeshes) {
    // "rot" is packed turned: x 64..84, y 0..40 on the page.
    ASSERT_TRUE(spSkeleton_setAttachment(rig.skeleton, "s0", "other"));
    spRegionAttachment* region = (spRegionAttachment*)rig.slot("s0")->attachment;
    float u = 64 / 128.0f, v = 0, u2 = 84 / 128.0f, v2 = 40 / 128.0f;
    // The image's top-left corner sits at the packed rectangle's bottom-left.
    expectVertices(std::vector<float>(region->uvs, region->uvs + 8), {u2, v2, u, v2, u, v, u2, v}, 1e-6f);

    spMeshAttachment* mesh = spMeshAttachment_create("m");
    float regionUVs[8] = {0, 1, 0, 0, 1, 0, 1, 1};  // bottom-left, top-left, top-right, bottom-right
    mesh->regionUVs = regionUVs;
    mesh->super.worldVerticesLength = 8;
    mesh->regionU = u;
    mesh->regionV = v;
    mesh->regionU2 = u2;
    mesh->regionV2 = v2;
    mesh->regionRotate = 1;
    spMeshAttachment_updateUVs(mesh);
    expectVertices(std::vector<float>(mesh->uvs, mesh->uvs + 8), std::vector<float>(region->uvs, region->uvs + 8),
                   1e-6f);
    mesh->regionUVs = nullptr;
    mesh->super.worldVerticesLength = 0;
    spAttachment_dispose(&mesh->super.super);
}

TEST_F(Attachments, MeshVerticesFollowTheirBones) {
    // Plain mesh on b: vertices plus (100, 50) plus (7, 3).
    expectVertices(meshVertices("s1"), {107, 53, 117, 53, 117, 63, 107, 63});
    spMeshAttachment* mesh = (spMeshAttachment*)rig.slot("s1")->attachment;
    EXPECT_EQ(mesh->trianglesCount, 6);
    EXPECT_EQ(mesh->hullLength, 4);
    // Whole region "r" (0..0.3125, 0..0.15625).
    expectVertices(std::vector<float>(mesh->uvs, mesh->uvs + 8), {0, 0, 0.3125f, 0, 0.3125f, 0.15625f, 0, 0.15625f},
                   1e-6f);

    // Weighted: vertex 0 is half (10, 0) on root and half (10, 0) on r:
    // (10, 0) and (100, 10) average to (55, 5); vertex 1 is (0, 10) on r:
    // (90, 0).
    expectVertices(meshVertices("s2"), {62, 8, 97, 3});
}

TEST_F(Attachments, DeformKeysMoveMeshVertices) {
    spSkeleton_setToSetupPose(rig.skeleton);
    spAnimation_apply(rig.animation("deform"), rig.skeleton, -1, 0.5f, 0, nullptr, nullptr);
    spSkeleton_updateWorldTransform(rig.skeleton);
    // Plain mesh: absolute positions, half of the offsets (4,0) and (4,6) on
    // vertices 1 and 2.
    expectVertices(meshVertices("s1"), {107, 53, 119, 53, 119, 66, 107, 63});
    // Weighted: offsets per bone weight, half of (0, 10) on vertex 0's two
    // bones: (10,5) -> (10,5) and on r -> (95, 10); average (52.5, 7.5).
    expectVertices(meshVertices("s2"), {59.5f, 10.5f, 97, 3});

    // Another attachment in the slot drops the deform.
    spSlot* slot = rig.slot("s1");
    EXPECT_EQ(slot->attachmentVerticesCount, 8);
    spSlot_setAttachment(slot, nullptr);
    EXPECT_EQ(slot->attachmentVerticesCount, 0);
}

TEST_F(Attachments, DeformBlendsByAlpha) {
    spSkeleton_setToSetupPose(rig.skeleton);
    spAnimation_apply(rig.animation("deform"), rig.skeleton, -1, 1, 0, nullptr, nullptr);
    spAnimation_mix(rig.animation("deform"), rig.skeleton, -1, 0, 0, nullptr, nullptr, 0.25f);
    spSkeleton_updateWorldTransform(rig.skeleton);
    // Three quarters of the full offsets remain.
    expectVertices(meshVertices("s1"), {107, 53, 120, 53, 120, 67.5f, 107, 63});
}

TEST_F(Attachments, BoundingBoxWorldVertices) {
    ASSERT_TRUE(spSkeleton_setAttachment(rig.skeleton, "s3", "box"));
    spSlot* slot = rig.slot("s3");
    ASSERT_EQ(slot->attachment->type, SP_ATTACHMENT_BOUNDING_BOX);
    float out[6];
    spVertexAttachment_computeWorldVertices((spVertexAttachment*)slot->attachment, slot, out);
    expectVertices(std::vector<float>(out, out + 6), {107, 53, 117, 53, 107, 63});
}

TEST_F(Attachments, ColorKeysSetAndBlend) {
    spSlot* slot = rig.slot("s1");
    EXPECT_NEAR(slot->r, 128 / 255.0f, 1e-6);
    EXPECT_NEAR(slot->g, 1, 1e-6);
    EXPECT_NEAR(slot->b, 0, 1e-6);
    rig.pose("color", 0.25f);
    EXPECT_NEAR(slot->r, 0.75f, 1e-5);
    EXPECT_NEAR(slot->a, 0.75f, 1e-5);
    rig.pose("color", 1.9f);  // stepped: still black
    EXPECT_NEAR(slot->r, 0, 1e-5);
    rig.pose("color", 3);
    EXPECT_NEAR(slot->r, 1, 1e-5);
    EXPECT_NEAR(slot->a, 128 / 255.0f, 1e-5);
    // alpha below 1 moves from the current colour.
    spAnimation_mix(rig.animation("color"), rig.skeleton, -1, 1, 0, nullptr, nullptr, 0.5f);
    EXPECT_NEAR(slot->r, 0.5f, 1e-5);
    EXPECT_NEAR(slot->a, (128 / 255.0f) * 0.5f, 1e-5);
}

TEST_F(Attachments, AttachmentKeysSwapWithoutBlending) {
    spSlot* slot = rig.slot("s0");
    rig.pose("swap", 0.2f);
    EXPECT_STREQ(slot->attachment->name, "quad");
    rig.pose("swap", 0.6f);
    EXPECT_EQ(slot->attachment, nullptr);
    spAnimation_mix(rig.animation("swap"), rig.skeleton, -1, 1.5f, 0, nullptr, nullptr, 0.1f);
    ASSERT_NE(slot->attachment, nullptr);
    EXPECT_STREQ(slot->attachment->name, "other");
}

TEST_F(Attachments, DrawOrderKeysReorderSlots) {
    auto order = [&] {
        std::string names;
        for (int i = 0; i < rig.skeleton->slotsCount; i++) names += rig.skeleton->drawOrder[i]->data->name;
        return names;
    };
    rig.pose("order", 0.5f);
    EXPECT_EQ(order(), "s3s0s1s2");
    rig.pose("order", 1.5f);
    EXPECT_EQ(order(), "s1s2s0s3");
    rig.pose("order", 2.5f);
    EXPECT_EQ(order(), "s0s1s2s3");
}

TEST_F(Attachments, SkinsSwapAttachmentsByName) {
    spSlot* s0 = rig.slot("s0");
    spSlot* s3 = rig.slot("s3");
    spSkeleton_setAttachment(rig.skeleton, "s3", "box");
    spAttachment* defaultQuad = s0->attachment;
    ASSERT_TRUE(spSkeleton_setSkinByName(rig.skeleton, "alt"));
    // No skin before: slots take the new skin's setup attachments; s3 has
    // no setup attachment and keeps the default skin's box.
    EXPECT_NE(s0->attachment, defaultQuad);
    EXPECT_EQ(((spRegionAttachment*)s0->attachment)->rendererObject, spAtlas_findRegion(rig.atlas, "rot"));
    EXPECT_EQ(s3->attachment, spSkin_getAttachment(rig.data->defaultSkin, 3, "box"));
    // Names missing from the skin fall back to the default skin.
    EXPECT_EQ(spSkeleton_getAttachmentForSlotName(rig.skeleton, "s1", "mesh"), rig.slot("s1")->attachment);
    EXPECT_EQ(spSkeleton_getAttachmentForSlotName(rig.skeleton, "s1", "nope"), nullptr);
    EXPECT_FALSE(spSkeleton_setSkinByName(rig.skeleton, "nope"));
    EXPECT_FALSE(spSkeleton_setAttachment(rig.skeleton, "s0", "nope"));
    EXPECT_FALSE(spSkeleton_setAttachment(rig.skeleton, "nope", "quad"));
    EXPECT_TRUE(spSkeleton_setAttachment(rig.skeleton, "s0", nullptr));
    EXPECT_EQ(s0->attachment, nullptr);
    // Back to setup: the current skin's attachment.
    spSkeleton_setSlotsToSetupPose(rig.skeleton);
    EXPECT_EQ(s0->attachment, spSkin_getAttachment(spSkeletonData_findSkin(rig.data, "alt"), 0, "quad"));
    EXPECT_STREQ(spSkin_getAttachmentName(rig.data->defaultSkin, 0, 0), "other");
}

TEST(SpineLinkedMesh, SharesGeometryAndFollowsParentDeform) {
    Rig rig;
    ASSERT_TRUE(rig.load(R"({
      "bones": [{"name": "root"}],
      "slots": [{"name": "s", "bone": "root", "attachment": "child"}],
      "skins": {
        "default": {"s": {
          "child": {"type": "linkedmesh", "path": "rot", "parent": "base", "skin": "other"},
          "still": {"type": "linkedmesh", "path": "r", "parent": "base", "skin": "other", "deform": false}
        }},
        "other": {"s": {"base": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 0, 0, 1], "triangles": [0, 1, 2],
                                 "vertices": [0, 0, 10, 0, 0, 10]}}}
      },
      "animations": {"d": {"deform": {"other": {"s": {"base": [{"time": 0, "vertices": [5, 5, 5, 5, 5, 5]}]}}}}}
    })")) << rig.error();
    spSlot* slot = rig.slot("s");
    spMeshAttachment* child = (spMeshAttachment*)slot->attachment;
    ASSERT_EQ(child->super.super.type, SP_ATTACHMENT_MESH);
    spMeshAttachment* base = (spMeshAttachment*)spSkin_getAttachment(spSkeletonData_findSkin(rig.data, "other"), 0, "base");
    EXPECT_EQ(child->parentMesh, base);
    EXPECT_EQ(child->super.vertices, base->super.vertices);
    EXPECT_EQ(child->triangles, base->triangles);
    EXPECT_NE(child->uvs, base->uvs);  // its own region
    EXPECT_NEAR(child->uvs[0], 64 / 128.0f, 1e-6);
    EXPECT_NEAR(child->uvs[1], 40 / 128.0f, 1e-6);

    rig.pose("d", 0);
    float out[6];
    spMeshAttachment_computeWorldVertices(child, slot, out);
    EXPECT_NEAR(out[2], 15, 1e-4);  // the parent's deform applies
    spSkeleton_setAttachment(rig.skeleton, "s", "still");
    spAnimation_apply(rig.animation("d"), rig.skeleton, -1, 0, 0, nullptr, nullptr);
    spMeshAttachment_computeWorldVertices((spMeshAttachment*)slot->attachment, slot, out);
    EXPECT_NEAR(out[2], 10, 1e-4);  // deform not inherited
}
