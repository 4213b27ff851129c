// The skeleton reader: the full test file, reader scale, and refusal of bad
// input with the reader's error text and without leaks.
#include "SpineTestSupport.h"

#include "support/LogCapture.h"

#include <cmath>
#include <fstream>
#include <set>
#include <sstream>

using namespace spinetest;

namespace {

std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

struct FullFile : public ::testing::Test {
    void SetUp() override {
        atlas = spAtlas_createFromFile(dataPath("full.atlas").c_str(), nullptr);
        ASSERT_NE(atlas, nullptr);
        json = spSkeletonJson_create(atlas);
        data = spSkeletonJson_readSkeletonDataFile(json, dataPath("full.json").c_str());
        ASSERT_NE(data, nullptr) << json->error;
    }
    void TearDown() override {
        spSkeletonData_dispose(data);
        spSkeletonJson_dispose(json);
        spAtlas_dispose(atlas);
    }
    spAttachment* attachment(const char* skin, const char* slot, const char* name) {
        return spSkin_getAttachment(spSkeletonData_findSkin(data, skin), spSkeletonData_findSlotIndex(data, slot), name);
    }
    spAtlas* atlas = nullptr;
    spSkeletonJson* json = nullptr;
    spSkeletonData* data = nullptr;
};

} // namespace

TEST_F(FullFile, ReadsEverySection) {
    EXPECT_STREQ(data->hash, "full-0001");
    EXPECT_STREQ(data->version, "1.0");
    EXPECT_FLOAT_EQ(data->width, 200);
    EXPECT_EQ(data->bonesCount, 14);
    EXPECT_EQ(data->slotsCount, 8);
    EXPECT_EQ(data->skinsCount, 2);
    EXPECT_EQ(data->defaultSkin, spSkeletonData_findSkin(data, "default"));
    EXPECT_EQ(data->eventsCount, 2);
    EXPECT_EQ(data->animationsCount, 2);
    EXPECT_EQ(data->ikConstraintsCount, 2);
    EXPECT_EQ(data->transformConstraintsCount, 1);
    EXPECT_EQ(data->pathConstraintsCount, 1);

    for (int i = 0; i < data->bonesCount; i++) {
        EXPECT_EQ(data->bones[i]->index, i);
        if (data->bones[i]->parent) {
            EXPECT_LT(data->bones[i]->parent->index, i);
        }
    }
    spBoneData* head = spSkeletonData_findBone(data, "head");
    EXPECT_FLOAT_EQ(head->shearX, 5);
    EXPECT_FLOAT_EQ(head->shearY, -5);
    EXPECT_EQ(spSkeletonData_findBone(data, "noRotation")->inheritRotation, 0);
    EXPECT_EQ(spSkeletonData_findBone(data, "noScale")->inheritScale, 0);
    EXPECT_FLOAT_EQ(spSkeletonData_findBone(data, "follower")->scaleX, 1.5f);

    spSlotData* headSlot = spSkeletonData_findSlot(data, "head");
    EXPECT_NEAR(headSlot->g, 0xee / 255.0f, 1e-6);
    EXPECT_NEAR(headSlot->a, 0xcc / 255.0f, 1e-6);
    EXPECT_EQ(spSkeletonData_findSlot(data, "glow")->blendMode, SP_BLEND_MODE_ADDITIVE);
    EXPECT_EQ(spSkeletonData_findSlot(data, "cape")->blendMode, SP_BLEND_MODE_MULTIPLY);
    EXPECT_EQ(spSkeletonData_findSlot(data, "capeLinked")->blendMode, SP_BLEND_MODE_SCREEN);
    EXPECT_EQ(spSkeletonData_findSlot(data, "body")->blendMode, SP_BLEND_MODE_NORMAL);

    spIkConstraintData* arm = spSkeletonData_findIkConstraint(data, "armIk");
    EXPECT_EQ(arm->bonesCount, 2);
    EXPECT_EQ(arm->bendDirection, -1);
    EXPECT_FLOAT_EQ(spSkeletonData_findIkConstraint(data, "lookIk")->mix, 0.5f);
    spTransformConstraintData* follow = data->transformConstraints[0];
    EXPECT_FLOAT_EQ(follow->offsetRotation, 10);
    EXPECT_FLOAT_EQ(follow->offsetShearY, 3);
    EXPECT_FLOAT_EQ(follow->scaleMix, 0.5f);
    spPathConstraintData* tail = data->pathConstraints[0];
    EXPECT_EQ(tail->rotateMode, SP_ROTATE_MODE_CHAIN_SCALE);
    EXPECT_EQ(tail->spacingMode, SP_SPACING_MODE_LENGTH);
    EXPECT_EQ(tail->positionMode, SP_POSITION_MODE_PERCENT);
    EXPECT_STREQ(tail->target->name, "tailPath");

    spEventData* footstep = spSkeletonData_findEvent(data, "footstep");
    EXPECT_EQ(footstep->intValue, 1);
    EXPECT_FLOAT_EQ(footstep->floatValue, 0.5f);
    EXPECT_STREQ(footstep->stringValue, "left");
}

TEST_F(FullFile, ReadsEveryAttachmentType) {
    spRegionAttachment* head = (spRegionAttachment*)attachment("default", "head", "head");
    ASSERT_EQ(head->super.type, SP_ATTACHMENT_REGION);
    EXPECT_EQ(head->regionOriginalWidth, 56);
    EXPECT_EQ(head->regionOffsetX, 4);
    spRegionAttachment* altHead = (spRegionAttachment*)attachment("alt", "head", "head");
    EXPECT_STREQ(altHead->path, "head-alt");

    spMeshAttachment* belly = (spMeshAttachment*)attachment("default", "belly", "belly");
    ASSERT_EQ(belly->super.super.type, SP_ATTACHMENT_MESH);
    EXPECT_EQ(belly->super.bones, nullptr);
    EXPECT_EQ(belly->super.worldVerticesLength, 8);
    EXPECT_EQ(belly->edgesCount, 8);
    EXPECT_TRUE(belly->regionRotate);

    spMeshAttachment* cape = (spMeshAttachment*)attachment("default", "cape", "cape");
    EXPECT_EQ(cape->super.bonesCount, 12);     // 4 x (count + 2 bones)
    EXPECT_EQ(cape->super.verticesCount, 24);  // 8 weights x (x, y, w)
    EXPECT_EQ(cape->super.worldVerticesLength, 8);

    spMeshAttachment* linked = (spMeshAttachment*)attachment("alt", "cape", "cape");
    ASSERT_EQ(linked->super.super.type, SP_ATTACHMENT_MESH);
    EXPECT_EQ(linked->parentMesh, cape);
    EXPECT_TRUE(linked->inheritDeform);
    EXPECT_EQ(linked->super.vertices, cape->super.vertices);
    EXPECT_FALSE(((spMeshAttachment*)attachment("default", "cape", "capeFlat"))->inheritDeform);
    // Declared before its parent in the same skin.
    spMeshAttachment* forward = (spMeshAttachment*)attachment("default", "capeLinked", "capeLinked");
    EXPECT_EQ(forward->parentMesh, (spMeshAttachment*)attachment("default", "capeLinked", "capeBase"));
    EXPECT_EQ(forward->trianglesCount, 3);

    spAttachment* hitbox = attachment("default", "hitbox", "hitbox");
    ASSERT_EQ(hitbox->type, SP_ATTACHMENT_BOUNDING_BOX);
    EXPECT_EQ(((spVertexAttachment*)hitbox)->worldVerticesLength, 8);

    spPathAttachment* path = (spPathAttachment*)attachment("default", "tailPath", "tailPath");
    ASSERT_EQ(path->super.super.type, SP_ATTACHMENT_PATH);
    EXPECT_FALSE(path->closed);
    EXPECT_TRUE(path->constantSpeed);
    EXPECT_EQ(path->lengthsCount, 2);
}

TEST_F(FullFile, ReadsEveryTimelineType) {
    spAnimation* all = spSkeletonData_findAnimation(data, "all");
    ASSERT_NE(all, nullptr);
    EXPECT_FLOAT_EQ(all->duration, 1);
    std::set<int> types;
    for (int i = 0; i < all->timelinesCount; i++) types.insert(all->timelines[i]->type);
    EXPECT_EQ(types.size(), 14u);
    EXPECT_FLOAT_EQ(spSkeletonData_findAnimation(data, "walk")->duration, 0.5f);
}

TEST_F(FullFile, EveryAnimationPosesToFiniteValues) {
    spSkeleton* skeleton = spSkeleton_create(data);
    for (int skin = 0; skin < 2; skin++) {
        spSkeleton_setSkinByName(skeleton, skin ? "alt" : "default");
        for (int a = 0; a < data->animationsCount; a++) {
            for (float t = 0; t <= 1.25f; t += 0.05f) {
                spSkeleton_setToSetupPose(skeleton);
                spAnimation_apply(data->animations[a], skeleton, t - 0.05f, t, 1, nullptr, nullptr);
                spSkeleton_updateWorldTransform(skeleton);
                for (int i = 0; i < skeleton->bonesCount; i++) {
                    const spBone* bone = skeleton->bones[i];
                    ASSERT_TRUE(std::isfinite(bone->a) && std::isfinite(bone->d) && std::isfinite(bone->worldX) &&
                                std::isfinite(bone->worldY))
                        << bone->data->name << " in " << data->animations[a]->name << " at " << t;
                }
                float vertices[64];
                for (int s = 0; s < skeleton->slotsCount; s++) {
                    spSlot* slot = skeleton->slots[s];
                    if (!slot->attachment) continue;
                    if (slot->attachment->type == SP_ATTACHMENT_REGION)
                        spRegionAttachment_computeWorldVertices((spRegionAttachment*)slot->attachment, slot->bone,
                                                                vertices);
                    else
                        spVertexAttachment_computeWorldVertices((spVertexAttachment*)slot->attachment, slot, vertices);
                    ASSERT_TRUE(std::isfinite(vertices[0]) && std::isfinite(vertices[1])) << slot->data->name;
                }
            }
        }
    }
    spSkeleton_dispose(skeleton);
}

TEST(SpineReader, ScaleMultipliesDistancesOnly) {
    const char* text = R"({
      "bones": [{"name": "root", "x": 3, "length": 5, "rotation": 30, "scaleX": 2}],
      "transform": [{"name": "t", "bones": ["root"], "target": "root", "x": 1, "rotation": 4}],
      "slots": [{"name": "s", "bone": "root", "attachment": "r"}],
      "skins": {"default": {"s": {"r": {"x": 2, "width": 10, "height": 6, "rotation": 7}}}},
      "animations": {"a": {"bones": {"root": {
        "translate": [{"time": 0, "x": 1, "y": 2}],
        "rotate": [{"time": 0, "angle": 9}],
        "scale": [{"time": 0, "x": 3, "y": 3}]}}}}
    })";
    Rig rig;
    ASSERT_TRUE(rig.load(text, Rig::kAtlas, 2)) << rig.error();
    spBoneData* root = rig.data->bones[0];
    EXPECT_FLOAT_EQ(root->x, 6);
    EXPECT_FLOAT_EQ(root->length, 10);
    EXPECT_FLOAT_EQ(root->rotation, 30);
    EXPECT_FLOAT_EQ(root->scaleX, 2);
    EXPECT_FLOAT_EQ(rig.data->transformConstraints[0]->offsetX, 2);
    EXPECT_FLOAT_EQ(rig.data->transformConstraints[0]->offsetRotation, 4);
    spRegionAttachment* region = (spRegionAttachment*)rig.slot("s")->attachment;
    EXPECT_FLOAT_EQ(region->x, 4);
    EXPECT_FLOAT_EQ(region->width, 20);
    EXPECT_FLOAT_EQ(region->rotation, 7);
    rig.pose("a", 0);
    spBone* bone = rig.bone("root");
    EXPECT_FLOAT_EQ(bone->x, 6 + 2);
    EXPECT_FLOAT_EQ(bone->y, 4);
    EXPECT_FLOAT_EQ(bone->rotation, 39);
    EXPECT_FLOAT_EQ(bone->scaleX, 6);
}

TEST(SpineReader, DefaultsOfAnEmptyDocument) {
    Rig rig;
    ASSERT_TRUE(rig.load("{}")) << rig.error();
    EXPECT_EQ(rig.data->bonesCount, 0);
    EXPECT_EQ(rig.data->defaultSkin, nullptr);
    EXPECT_EQ(rig.skeleton->root, nullptr);
    spSkeleton_updateWorldTransform(rig.skeleton);

    Rig bone;
    ASSERT_TRUE(bone.load(R"({"bones": [{"name": "b"}], "ik": [{"name": "i", "bones": ["b"], "target": "b"}],
                              "slots": [{"name": "s", "bone": "b"}]})"))
        << bone.error();
    spBoneData* data = bone.data->bones[0];
    EXPECT_EQ(data->scaleX, 1);
    EXPECT_EQ(data->inheritRotation, 1);
    EXPECT_EQ(bone.data->ikConstraints[0]->bendDirection, 1);
    EXPECT_EQ(bone.data->ikConstraints[0]->mix, 1);
    EXPECT_EQ(bone.data->slots[0]->a, 1);
    EXPECT_EQ(bone.data->slots[0]->attachmentName, nullptr);
}

namespace {

struct BadCase {
    const char* json;
    const char* error;  // exact reader error
};

const BadCase kBadCases[] = {
    {R"({"bones": [{"name": "a", "parent": "missing"}]})", "Parent bone not found: missing"},
    {R"({"bones": [{"name": "a", "parent": "b"}, {"name": "b"}]})", "Parent bone not found: b"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "x"}]})", "Slot bone not found: x"},
    {R"({"bones": [{"name": "a"}], "ik": [{"name": "i", "bones": ["a", "x"], "target": "a"}]})", "IK bone not found: x"},
    {R"({"bones": [{"name": "a"}], "ik": [{"name": "i", "bones": ["a"], "target": "x"}]})", "Target bone not found: x"},
    {R"({"bones": [{"name": "a"}], "transform": [{"name": "t", "bones": ["x"], "target": "a"}]})",
     "Transform bone not found: x"},
    {R"({"bones": [{"name": "a"}], "transform": [{"name": "t", "bones": ["a"], "target": "x"}]})",
     "Target bone not found: x"},
    {R"({"bones": [{"name": "a"}], "path": [{"name": "p", "bones": ["x"], "target": "s"}]})", "Path bone not found: x"},
    {R"({"bones": [{"name": "a"}], "path": [{"name": "p", "bones": ["a"], "target": "s"}]})", "Target slot not found: s"},
    {R"({"bones": [{"name": "a"}], "skins": {"default": {"s": {}}}})", "Slot not found: s"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"type": "sprite"}}}}})",
     "Unknown attachment type: sprite"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"path": "nope"}}}}})",
     "Region not found: nope"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"type": "mesh", "path": "gone", "uvs": [0, 0]}}}}})",
     "Region not found: gone"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"type": "linkedmesh", "path": "r", "parent": "m", "skin": "nope"}}}}})",
     "Skin not found: nope"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"type": "linkedmesh", "path": "r", "parent": "m"}}}}})",
     "Parent mesh not found: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"x": {"type": "linkedmesh", "path": "r", "parent": "y"},
                                    "y": {"type": "linkedmesh", "path": "r", "parent": "x"}}}}})",
     "Parent mesh not found: y"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"m": {"path": "r"}, "x": {"type": "linkedmesh", "path": "r", "parent": "m"}}}}})",
     "Parent mesh not found: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"m": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 1],
                                          "vertices": [1, 7, 0, 0, 1, 1, 0, 0, 0, 1], "triangles": [0, 1, 0]}}}}})",
     "Invalid vertices in attachment: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"m": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 1],
                                          "vertices": [1, 0, 0, 0, 1]}}}}})",
     "Invalid vertices in attachment: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"m": {"type": "mesh", "path": "r", "uvs": [0, 0, 1, 1],
                                          "vertices": [0, 0, 1, 1], "triangles": [0, 1, 2]}}}}})",
     "Invalid triangles in attachment: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"b": {"type": "boundingbox", "vertexCount": 1000000000, "vertices": [0, 0]}}}}})",
     "Invalid vertices in attachment: b"},
    {R"({"bones": [{"name": "a"}], "animations": {"x": {"bones": {"nope": {}}}}})", "Bone not found: nope"},
    {R"({"bones": [{"name": "a"}], "animations": {"x": {"bones": {"a": {"wiggle": [{"time": 0}]}}}}})",
     "Invalid timeline type for a bone: wiggle"},
    {R"({"bones": [{"name": "a"}], "animations": {"x": {"slots": {"nope": {}}}}})", "Slot not found: nope"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "animations": {"x": {"slots": {"s": {"blink": []}}}}})",
     "Invalid timeline type for a slot: blink"},
    {R"({"animations": {"x": {"ik": {"nope": []}}}})", "IK constraint not found: nope"},
    {R"({"animations": {"x": {"transform": {"nope": []}}}})", "Transform constraint not found: nope"},
    {R"({"animations": {"x": {"paths": {"nope": {}}}}})", "Path constraint not found: nope"},
    {R"({"animations": {"x": {"deform": {"nope": {}}}}})", "Skin not found: nope"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}], "skins": {"default": {}},
        "animations": {"x": {"deform": {"default": {"s": {"m": []}}}}}})",
     "Attachment not found: m"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}], "skins": {"default": {"s": {"q": {"path": "r"}}}},
        "animations": {"x": {"deform": {"default": {"s": {"q": [{"time": 0}]}}}}}})",
     "Attachment is not deformable: q"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}],
        "skins": {"default": {"s": {"b": {"type": "boundingbox", "vertexCount": 1, "vertices": [0, 0]}}}},
        "animations": {"x": {"deform": {"default": {"s": {"b": [{"time": 0, "offset": 1, "vertices": [1, 2]}]}}}}}})",
     "Invalid deform vertices for attachment: b"},
    {R"({"animations": {"x": {"drawOrder": [{"time": 0, "offsets": [{"slot": "nope", "offset": 1}]}]}}})",
     "Slot not found: nope"},
    {R"({"bones": [{"name": "a"}], "slots": [{"name": "s", "bone": "a"}, {"name": "t", "bone": "a"}],
        "animations": {"x": {"drawOrder": [{"time": 0, "offsets": [{"slot": "t", "offset": 5}]}]}}})",
     "Invalid draw order offset for slot: t"},
    {R"({"animations": {"x": {"events": [{"time": 0, "name": "nope"}]}}})", "Event not found: nope"},
};

} // namespace

TEST(SpineReader, RefusesBadReferencesWithTheirErrorAndNoLeak) {
    for (const BadCase& bad : kBadCases) {
        LogCapture log;
        AllocationCounter counter;
        {
            Rig rig;
            EXPECT_FALSE(rig.load(bad.json)) << bad.json;
            EXPECT_EQ(rig.error(), bad.error) << bad.json;
            EXPECT_EQ(rig.data, nullptr);
        }
        EXPECT_EQ(counter.live(), 0) << bad.json;
        EXPECT_EQ(log.count(bad.error, ZU_LOG_ERROR), 1) << bad.json;
    }
}

TEST(SpineReader, RefusesMalformedJson) {
    const char* cases[] = {"", "{", "{\"bones\": [}", "[1, 2,]", "{\"a\" 1}", "{\"a\": tru}", "{} {}", "\"open"};
    for (const char* text : cases) {
        AllocationCounter counter;
        {
            Rig rig;
            EXPECT_FALSE(rig.load(text)) << text;
            EXPECT_EQ(rig.error().rfind("Invalid skeleton JSON: ", 0), 0u) << rig.error();
            EXPECT_GT(rig.error().size(), strlen("Invalid skeleton JSON: ")) << text;
        }
        EXPECT_EQ(counter.live(), 0) << text;
    }
}

TEST(SpineReader, EveryTruncationOfARealFileFailsCleanly) {
    std::string text = readText(dataPath("full.json"));
    ASSERT_GT(text.size(), 1000u);
    spAtlas* atlas = spAtlas_createFromFile(dataPath("full.atlas").c_str(), nullptr);
    ASSERT_NE(atlas, nullptr);
    LogCapture quiet;
    {
        AllocationCounter counter;
        spSkeletonJson* json = spSkeletonJson_create(atlas);
        // The reader gets exactly the prefix, in a block of that size, so
        // reading past it is caught by the address sanitizer.
        for (size_t length = 0; length < text.size() - 2; length += 7) {
            std::vector<char> prefix(text.begin(), text.begin() + length);
            spSkeletonData* data = spSkeletonJson_readSkeletonDataWithLength(json, prefix.data(), (int)length);
            EXPECT_EQ(data, nullptr) << length;
            spSkeletonData_dispose(data);
        }
        spSkeletonJson_dispose(json);
        EXPECT_EQ(counter.live(), 0);
    }
    spAtlas_dispose(atlas);
}

TEST(SpineReader, MissingFilesAreRefused) {
    LogCapture log;
    spSkeletonJson* json = spSkeletonJson_createWithLoader(nullptr);
    std::string path = dataPath("no-such.json");
    EXPECT_EQ(spSkeletonJson_readSkeletonDataFile(json, path.c_str()), nullptr);
    EXPECT_EQ(std::string(json->error), "Unable to read skeleton file: " + path);
    spSkeletonJson_dispose(json);
    EXPECT_EQ(spAtlas_createFromFile(dataPath("no-such.atlas").c_str(), nullptr), nullptr);
    EXPECT_GE(log.count("no-such", ZU_LOG_WARN), 2);
}

TEST(SpineReader, SampleSkeletonPlays) {
    std::string dir = std::string(QZ_SOURCE_DIR) + "/samples/spine/walker/";
    spAtlas* atlas = spAtlas_createFromFile((dir + "walker.atlas").c_str(), nullptr);
    ASSERT_NE(atlas, nullptr);
    spSkeletonJson* json = spSkeletonJson_create(atlas);
    spSkeletonData* data = spSkeletonJson_readSkeletonDataFile(json, (dir + "walker.json").c_str());
    ASSERT_NE(data, nullptr) << json->error;
    spSkeleton* skeleton = spSkeleton_create(data);
    spAnimationStateData* stateData = spAnimationStateData_create(data);
    spAnimationStateData_setMixByName(stateData, "idle", "walk", 0.2f);
    spAnimationState* state = spAnimationState_create(stateData);
    spAnimationState_setAnimationByName(state, 0, "idle", 1);
    spAnimationState_addAnimationByName(state, 0, "walk", 1, 0.5f);
    for (int i = 0; i < 120; i++) {
        spAnimationState_update(state, 1 / 30.0f);
        spAnimationState_apply(state, skeleton);
        spSkeleton_updateWorldTransform(skeleton);
    }
    EXPECT_EQ(spAnimationState_getCurrent(state, 0)->animation, spSkeletonData_findAnimation(data, "walk"));
    // The feet are IK targets: each shin's tip stays on its foot.
    for (const char* side : {"left", "right"}) {
        spBone* shin = spSkeleton_findBone(skeleton, (std::string(side) + "Shin").c_str());
        spBone* foot = spSkeleton_findBone(skeleton, (std::string(side) + "Foot").c_str());
        EXPECT_NEAR(shin->worldX + shin->a * shin->data->length, foot->worldX, 0.05f) << side;
        EXPECT_NEAR(shin->worldY + shin->c * shin->data->length, foot->worldY, 0.05f) << side;
    }
    spAnimationState_dispose(state);
    spAnimationStateData_dispose(stateData);
    spSkeleton_dispose(skeleton);
    spSkeletonData_dispose(data);
    spSkeletonJson_dispose(json);
    spAtlas_dispose(atlas);
}
