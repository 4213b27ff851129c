// Mesh and skeleton files written by tools/meshgen read back to what the
// writer described (figure.expect.json, written beside the files), and
// broken files are refused without reading past their end.
#include "basesys/MemoryDataStream.h"
#include "core/Animation.h"
#include "core/MeshSerializer.h"
#include "core/Pose.h"
#include "core/Skeleton.h"
#include "core/SkeletonSerializer.h"
#include "core/VertexData.h"
#include "core/ZuOgrePieceModel.h"
#include "core/ZuSubMesh.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string dataDir() { return std::string(QZ_SOURCE_DIR) + "/tests/core/data/"; }

std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

float f(const rapidjson::Value& v) { return static_cast<float>(v.GetDouble()); }

// Reads a mesh from bytes in memory under a file name (for the skeleton link).
bool readMesh(const std::string& bytes, ZuOgrePieceModel* model, const std::string& name) {
    std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    MemoryDataStream stream(name, copy.data(), copy.size());
    MeshSerializer reader;
    return reader.importMesh(stream, model);
}

bool readSkeleton(const std::string& bytes, Skeleton* skeleton) {
    std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    MemoryDataStream stream("cut.skeleton", copy.data(), copy.size());
    SkeletonSerializer reader;
    return reader.importSkeleton(stream, skeleton);
}

class FigureFiles : public ::testing::Test {
protected:
    void SetUp() override {
        std::string json = slurp(dataDir() + "figure.expect.json");
        expect.Parse(json.c_str());
        ASSERT_FALSE(expect.HasParseError());
        ASSERT_TRUE(MeshSerializer::loadFile(dataDir() + "figure.mesh", &model));
    }
    rapidjson::Document expect;
    ZuOgrePieceModel model;
};

TEST_F(FigureFiles, MeshReadsBackSubmeshesBuffersIndicesAndAssignmentsExactly) {
    const rapidjson::Value& subs = expect["mesh"]["submeshes"];
    ASSERT_EQ(model.getSubMeshList().size(), subs.Size());
    for (rapidjson::SizeType s = 0; s < subs.Size(); ++s) {
        const rapidjson::Value& e = subs[s];
        ZuSubMesh* sub = model.getSubMesh(s);
        EXPECT_EQ(sub->materialName, e["material"].GetString());
        EXPECT_EQ(sub->operationType, e["operation"].GetUint());
        EXPECT_EQ(sub->indexData.use32Bit, e["idx32"].GetBool());
        ASSERT_EQ(sub->indexData.indexCount, e["indices"].Size());
        for (rapidjson::SizeType i = 0; i < e["indices"].Size(); ++i)
            EXPECT_EQ(sub->indexData.getIndex(i), e["indices"][i].GetUint());
        VertexData* data = sub->vertexData.get();
        ASSERT_EQ(data->vertexCount, e["vertex_count"].GetUint());
        ASSERT_EQ(data->vertexDeclaration.getElementCount(), e["elements"].Size());
        for (rapidjson::SizeType i = 0; i < e["elements"].Size(); ++i) {
            const VertexElement* el = data->vertexDeclaration.getElement(i);
            const rapidjson::Value& row = e["elements"][i];
            EXPECT_EQ(el->source, row[0].GetUint());
            EXPECT_EQ(el->type, row[1].GetUint());
            EXPECT_EQ(el->semantic, row[2].GetUint());
            EXPECT_EQ(el->offset, row[3].GetUint());
            EXPECT_EQ(el->index, row[4].GetUint());
        }
        auto buffer = data->vertexBufferBinding.getBuffer(0);
        ASSERT_TRUE(buffer);
        const rapidjson::Value& floats = e["floats"];
        ASSERT_EQ(buffer->sizeBytes(), floats.Size() * 4);
        for (rapidjson::SizeType i = 0; i < floats.Size(); ++i) {
            float want = f(floats[i]), got;
            std::memcpy(&got, buffer->getData() + i * 4, 4);
            EXPECT_EQ(std::memcmp(&want, &got, 4), 0) << "float " << i;
        }
        // Assignments by vertex, in file order within a vertex.
        const rapidjson::Value& bas = e["bone_assignments"];
        ASSERT_EQ(sub->getBoneAssignments().size(), bas.Size());
        for (rapidjson::SizeType i = 0; i < bas.Size(); ++i) {
            uint32_t v = bas[i][0].GetUint();
            bool found = false;
            auto range = sub->getBoneAssignments().equal_range(v);
            for (auto it = range.first; it != range.second; ++it)
                found |= it->second.boneIndex == bas[i][1].GetUint() && it->second.weight == f(bas[i][2]);
            EXPECT_TRUE(found) << "assignment " << i;
        }
    }
    EXPECT_EQ(model.getSubMeshNames().at("arm"), 1);
    EXPECT_EQ(model.getSubMeshNames().at("body"), 0);
    const rapidjson::Value& bounds = expect["mesh"]["bounds"];
    EXPECT_EQ(model.getBounds().minimum.x, f(bounds[0][0]));
    EXPECT_EQ(model.getBounds().maximum.x, f(bounds[1][0]));
}

TEST_F(FigureFiles, PosesAnimationsAndPoseReferencesReadBackExactly) {
    const rapidjson::Value& poses = expect["mesh"]["poses"];
    ASSERT_EQ(model.getPoseList().size(), poses.Size());
    for (rapidjson::SizeType p = 0; p < poses.Size(); ++p) {
        const Pose* pose = model.getPoseList()[p].get();
        EXPECT_EQ(pose->getName(), poses[p][0].GetString());
        EXPECT_EQ(pose->getTarget(), poses[p][1].GetUint());
        const rapidjson::Value& verts = poses[p][2];
        ASSERT_EQ(pose->getVertexOffsets().size(), verts.Size());
        for (rapidjson::SizeType v = 0; v < verts.Size(); ++v) {
            const ZuVec3& off = pose->getVertexOffsets().at(verts[v][0].GetUint());
            EXPECT_EQ(off.x, f(verts[v][1][0]));
            EXPECT_EQ(off.y, f(verts[v][1][1]));
            EXPECT_EQ(off.z, f(verts[v][1][2]));
        }
    }
    const rapidjson::Value& anim = expect["mesh"]["animations"][0];
    Animation* breathe = model._getAnimationImpl(anim[0].GetString());
    ASSERT_NE(breathe, nullptr);
    EXPECT_EQ(breathe->getLength(), f(anim[1]));
    const rapidjson::Value& track = anim[2][0];
    VertexAnimationTrack* vt = breathe->getVertexTrack(static_cast<uint16_t>(track[1].GetUint()));
    ASSERT_NE(vt, nullptr);
    EXPECT_EQ(vt->getAnimationType(), track[0].GetUint());
    EXPECT_EQ(vt->getAssociatedVertexData(), model.getSubMesh(0)->vertexData.get());
    ASSERT_EQ(vt->getNumKeyFrames(), track[2].Size());
    for (rapidjson::SizeType k = 0; k < track[2].Size(); ++k) {
        auto* frame = static_cast<VertexPoseKeyFrame*>(vt->getKeyFrame(k));
        EXPECT_EQ(frame->getTime(), f(track[2][k][0]));
        const rapidjson::Value& refs = track[2][k][1];
        ASSERT_EQ(frame->getPoseReferences().size(), refs.Size());
        for (rapidjson::SizeType r = 0; r < refs.Size(); ++r) {
            EXPECT_EQ(frame->getPoseReferences()[r].poseIndex, refs[r][0].GetUint());
            EXPECT_EQ(frame->getPoseReferences()[r].influence, f(refs[r][1]));
        }
    }
}

TEST_F(FigureFiles, SkeletonLinkLoadsBonesHierarchyAndKeyFramesExactly) {
    ASSERT_TRUE(model.hasSkeleton());
    EXPECT_EQ(model.getSkeletonName(), dataDir() + "figure.skeleton");
    Skeleton* skel = model.getSkeleton();
    EXPECT_EQ(skel->getVersion(), "[Serializer_v1.10]");
    const rapidjson::Value& bones = expect["skeleton"]["bones"];
    ASSERT_EQ(skel->getNumBones(), bones.Size());
    for (rapidjson::SizeType b = 0; b < bones.Size(); ++b) {
        Bone* bone = skel->getBone(static_cast<uint16_t>(bones[b][1].GetUint()));
        ASSERT_NE(bone, nullptr);
        EXPECT_EQ(bone->getName(), bones[b][0].GetString());
        EXPECT_EQ(skel->getBone(bone->getName()), bone);
        EXPECT_EQ(bone->getPosition().y, f(bones[b][2][1]));
        EXPECT_EQ(bone->getOrientation().z, f(bones[b][3][2]));
        EXPECT_EQ(bone->getOrientation().w, f(bones[b][3][3]));
        // A bone chunk of length 36 has no scale and keeps (1, 1, 1).
        if (bones[b][4].IsNull()) {
            EXPECT_EQ(bone->getScale(), ZuVec3(1, 1, 1));
        }
    }
    // Parents came child-first in the file.
    EXPECT_EQ(skel->getBone("Arm")->getParent(), skel->getBone("Body"));
    EXPECT_EQ(skel->getBone("Body")->getParent(), skel->getBone("Root"));
    EXPECT_EQ(skel->getRootBone(), skel->getBone("Root"));

    const rapidjson::Value& anims = expect["skeleton"]["animations"];
    for (rapidjson::SizeType a = 0; a < anims.Size(); ++a) {
        Animation* anim = skel->_getAnimationImpl(anims[a][0].GetString());
        ASSERT_NE(anim, nullptr);
        EXPECT_EQ(anim->getLength(), f(anims[a][1]));
        const rapidjson::Value& track = anims[a][2][0];
        NodeAnimationTrack* nt = anim->getNodeTrack(static_cast<uint16_t>(track[0].GetUint()));
        ASSERT_NE(nt, nullptr);
        ASSERT_EQ(nt->getNumKeyFrames(), track[1].Size());
        for (rapidjson::SizeType k = 0; k < track[1].Size(); ++k) {
            const rapidjson::Value& kf = track[1][k];
            TransformKeyFrame* frame = nt->getNodeKeyFrame(k);
            EXPECT_EQ(frame->getTime(), f(kf[0]));
            EXPECT_EQ(frame->getRotation().x, f(kf[1][0]));
            EXPECT_EQ(frame->getRotation().z, f(kf[1][2]));
            EXPECT_EQ(frame->getRotation().w, f(kf[1][3]));
            EXPECT_EQ(frame->getTranslate().y, f(kf[2][1]));
            // A key frame of length 38 keeps scale (1, 1, 1); one of 50 has its own.
            ZuVec3 scale = kf[3].IsNull() ? ZuVec3(1, 1, 1) : ZuVec3(f(kf[3][0]), f(kf[3][1]), f(kf[3][2]));
            EXPECT_EQ(frame->getScale(), scale);
        }
    }
}

TEST(ModelFileSkeleton, SparseHandlesLeaveEmptySlotsAndTheLaterOfTwoNamesWins) {
    // Hand-made: bones 0, 1, 5 with 1 and 5 both named "B".
    auto chunk = [](uint16_t id, const std::string& payload, uint32_t length) {
        std::string out(6, '\0');
        std::memcpy(&out[0], &id, 2);
        std::memcpy(&out[2], &length, 4);
        return out + payload;
    };
    auto bone = [&](const std::string& name, uint16_t handle) {
        std::string p = name + "\n";
        p.append(reinterpret_cast<const char*>(&handle), 2);
        float values[7] = {0, 0, 0, 0, 0, 0, 1};
        p.append(reinterpret_cast<const char*>(values), sizeof values);
        return chunk(0x2000, p, 36);
    };
    std::string file("\x00\x10", 2);
    file += "[Serializer_v1.80]\r\n" + bone("A", 0) + bone("B", 1) + bone("B", 5);
    Skeleton skel;
    ASSERT_TRUE(readSkeleton(file, &skel));
    EXPECT_EQ(skel.getVersion(), "[Serializer_v1.80]"); // the CR before the LF is dropped
    EXPECT_EQ(skel.getNumBones(), 6u);
    EXPECT_EQ(skel.getBone(static_cast<uint16_t>(3)), nullptr);
    EXPECT_EQ(skel.getBone("B"), skel.getBone(static_cast<uint16_t>(5)));
    EXPECT_NE(skel.getBone(static_cast<uint16_t>(1)), nullptr);
}

TEST(ModelFileSkeleton, AFileStartingWith1000IsReadWithEveryValueSwapped) {
    // Big-endian by hand: header 10 00, one bone chunk (id 0x2000, length 48
    // so with a scale), handle 7, position (1, 2, 3), orientation (0, 0, 0, 1),
    // scale (2, 2, 2).
    auto be16 = [](uint16_t v) { return std::string{static_cast<char>(v >> 8), static_cast<char>(v & 0xFF)}; };
    auto be32 = [](uint32_t v) {
        return std::string{static_cast<char>(v >> 24), static_cast<char>((v >> 16) & 0xFF),
                           static_cast<char>((v >> 8) & 0xFF), static_cast<char>(v & 0xFF)};
    };
    auto bef = [&](float f) {
        uint32_t u;
        std::memcpy(&u, &f, 4);
        return be32(u);
    };
    std::string file = be16(0x1000) + "[Serializer_v1.10]\n" + be16(0x2000) + be32(48) + "Neck\n" + be16(7);
    for (float f : {1.0f, 2.0f, 3.0f, 0.0f, 0.0f, 0.0f, 1.0f, 2.0f, 2.0f, 2.0f}) file += bef(f);
    Skeleton skel;
    ASSERT_TRUE(readSkeleton(file, &skel));
    Bone* bone = skel.getBone("Neck");
    ASSERT_NE(bone, nullptr);
    EXPECT_EQ(bone->getHandle(), 7);
    EXPECT_EQ(bone->getPosition(), ZuVec3(1, 2, 3));
    EXPECT_EQ(bone->getOrientation().w, 1.0f);
    EXPECT_EQ(bone->getScale(), ZuVec3(2, 2, 2));
}

TEST(ModelFileRefusals, EveryTruncationOfBothFilesIsRefusedOrReadWithinTheBuffer) {
    std::string mesh = slurp(dataDir() + "figure.mesh");
    std::string skeleton = slurp(dataDir() + "figure.skeleton");
    ASSERT_GT(mesh.size(), 100u);
    LogCapture log;
    int refusedMeshes = 0, refusedSkeletons = 0;
    for (size_t n = 0; n < mesh.size(); ++n) {
        ZuOgrePieceModel model;
        // Under another directory the link is missing; that is refused too.
        refusedMeshes += !readMesh(mesh.substr(0, n), &model, dataDir() + "figure.mesh");
    }
    for (size_t n = 0; n < skeleton.size(); ++n) {
        Skeleton skel;
        refusedSkeletons += !readSkeleton(skeleton.substr(0, n), &skel);
    }
    // The mesh is one top-level chunk: every cut is refused. A skeleton cut
    // between its top-level chunks (8 of them) or inside the version string
    // (20 bytes, kept whatever it says) is a whole file; any other is refused.
    EXPECT_EQ(refusedMeshes, static_cast<int>(mesh.size()));
    EXPECT_GE(refusedSkeletons, static_cast<int>(skeleton.size()) - 28);
    EXPECT_GT(log.count("refused"), 0);
}

TEST(ModelFileRefusals, InconsistentFilesAreRefusedNamingTheFileAndTheChunk) {
    std::string mesh = slurp(dataDir() + "figure.mesh");
    LogCapture log;
    // A pose reference past the pose list: the last pose reference's index
    // sits 6 bytes before the file end (u16 index, f32 influence).
    {
        std::string bad = mesh;
        uint16_t index = 7;
        std::memcpy(&bad[bad.size() - 6], &index, 2);
        ZuOgrePieceModel model;
        EXPECT_FALSE(readMesh(bad, &model, dataDir() + "bad_ref.mesh"));
        EXPECT_EQ(log.count("bad_ref.mesh: chunk 0xd113"), 1);
    }
    // The mesh chunk claims more than the file holds.
    {
        std::string bad = mesh;
        size_t header = 2 + std::strlen("[MeshSerializer_v1.8]\n");
        uint32_t length = 1u << 30;
        std::memcpy(&bad[header + 2], &length, 4);
        ZuOgrePieceModel model;
        EXPECT_FALSE(readMesh(bad, &model, "long.mesh"));
        EXPECT_EQ(log.count("long.mesh: chunk 0x3000"), 1);
    }
    // A submesh on shared vertices: the byte after the first material name.
    {
        std::string bad = mesh;
        size_t at = bad.find("body\n") + 5;
        bad[at] = 1;
        ZuOgrePieceModel model;
        EXPECT_FALSE(readMesh(bad, &model, "shared.mesh"));
        EXPECT_EQ(log.count("shared.mesh: chunk 0x4000"), 1);
    }
    // An unknown version: nothing is read.
    {
        std::string bad = mesh;
        bad.replace(bad.find("v1.8"), 4, "v9.9");
        ZuOgrePieceModel model;
        EXPECT_FALSE(readMesh(bad, &model, "version.mesh"));
        EXPECT_TRUE(model.getSubMeshList().empty());
    }
    // A missing file gives an empty model.
    ZuOgrePieceModel missing;
    EXPECT_FALSE(MeshSerializer::loadFile(dataDir() + "nothing.mesh", &missing));
    EXPECT_TRUE(missing.getSubMeshList().empty());
}

} // namespace
